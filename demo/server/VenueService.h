#pragma once

#include "Answer.h"
#include "PictureStore.h"
#include "RequestLog.h"
#include "VenueCatalogue.h"

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
    VenueService(const QString& host, PictureSource source, const QString& pictureFolder);

    /// Requests that are being answered finish with the catalogue they began with.
    void SetCatalogue(const VenueCatalogue& catalogue);
    std::shared_ptr<const VenueCatalogue> Catalogue() const;

    Answer AnswerTo(const RequestRecord& request);

private:
    Answer AnswerVenues(const RequestRecord& request) const;
    Answer AnswerPicture(const QString& file);
    Answer AnswerModelFile(const QString& file) const;

    QString m_host;
    PictureStore m_pictures;
    mutable QMutex m_mutex;
    std::shared_ptr<const VenueCatalogue> m_catalogue;
};

} // namespace korvel::Demo
