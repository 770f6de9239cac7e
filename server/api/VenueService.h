#pragma once

#include <server/api/VenuePicture.h>
#include <server/catalogue/VenueCatalogue.h>
#include <server/log/Answer.h>
#include <server/log/RequestLog.h>

#include <QMutex>

#include <memory>

namespace korvel::Demo {

/// Knows the answer to every request: venues, pictures, model files, or what is wrong with it. No network
/// here.
///
/// All members may be used from every thread.
class VenueService
{
public:
    VenueService(const QString& host, PictureSource pictures);

    /// Requests that are being answered finish with the catalogue they began with.
    void SetCatalogue(const VenueCatalogue& catalogue);
    std::shared_ptr<const VenueCatalogue> Catalogue() const;

    Answer AnswerTo(const Request& request) const;

private:
    Answer AnswerVenues(const Request& request) const;
    Answer AnswerPicture(const QString& file) const;
    Answer AnswerModelFile(const QString& file) const;

    QString m_host;
    PictureSource m_pictures;
    mutable QMutex m_mutex;
    std::shared_ptr<const VenueCatalogue> m_catalogue;
};

} // namespace korvel::Demo
