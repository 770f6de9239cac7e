#include <tests/tour/Texts.h>

#include <QCoreApplication>

namespace korvel::Demo::Texts {

QString OfModule(const char* name, const char* english)
{
    return QCoreApplication::translate(QByteArray("korvel::Ui::VenueDatabase::").append(name).constData(),
                                       english);
}

QString OfHost(const char* name, const char* english)
{
    return QCoreApplication::translate(QByteArray("korvel::Demo::").append(name).constData(), english);
}

QString FieldLabel(const char* english)
{
    // The names of the properties are no texts of a class.
    return QCoreApplication::translate("QObject", english) + QLatin1Char(':');
}

} // namespace korvel::Demo::Texts
