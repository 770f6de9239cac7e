#pragma once

//! [place]
#include <ui/VenueDbDialog.h>

#include <QEvent>
#include <QSettings>

/// Opens the venue database where the user left it, as large as the user left it.
class VenuePlace : public QObject
{
public:
    /// Lives as long as \p dialog.
    explicit VenuePlace(korvel::Ui::VenueDatabase::VenueDbDialog* dialog)
        : QObject(dialog)
        , m_dialog(dialog)
    {
        dialog->installEventFilter(this);
    }

    void Open(QScreen* screen)
    {
        // Open() gives the dialog its own size and place, so ours comes after it.
        const QByteArray place = QSettings().value(c_key).toByteArray();
        m_dialog->Open(screen);
        m_dialog->restoreGeometry(place);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Whichever way the user closes the dialog: it hides.
        if (event->type() == QEvent::Hide && !event->spontaneous())
            QSettings().setValue(c_key, static_cast<QWidget*>(watched)->saveGeometry());
        return QObject::eventFilter(watched, event);
    }

private:
    static constexpr QLatin1String c_key = QLatin1String("venueDatabase/geometry");

    korvel::Ui::VenueDatabase::VenueDbDialog* m_dialog;
};
//! [place]
