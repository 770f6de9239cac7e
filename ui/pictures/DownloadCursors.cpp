#include <ui/pictures/DownloadCursors_p.h>

#include <QCursor>
#include <QGuiApplication>

#include <algorithm>

namespace korvel::Ui::VenueDatabase {

DownloadCursors::~DownloadCursors()
{
    EndAll();
}

void DownloadCursors::Begin(const QUrl& url)
{
    // Nothing can report any more.
    if (std::none_of(m_downloads.cbegin(), m_downloads.cend(),
                     [](const Downloads& downloads) { return downloads.running > 0; }))
        m_downloads.clear();

    Downloads& downloads = m_downloads[url];
    ++downloads.running;
    ++downloads.awaited;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void DownloadCursors::EndOne(const QUrl& url, bool isLast)
{
    const auto known = m_downloads.find(url);
    if (known == m_downloads.end()) {
        const auto other = std::find_if(m_downloads.begin(), m_downloads.end(),
                                        [](const Downloads& downloads) { return downloads.awaited > 0; });
        if (other != m_downloads.end())
            EndWait(*other);
        return;
    }
    if (known->awaited > 0 && known->awaited == known->running)
        EndWait(*known);
    if (isLast && known->running > 0)
        --known->running;
}

void DownloadCursors::EndAll()
{
    for (Downloads& downloads : m_downloads) {
        while (downloads.awaited > 0)
            EndWait(downloads);
    }
}

void DownloadCursors::EndWait(Downloads& downloads)
{
    --downloads.awaited;
    QGuiApplication::restoreOverrideCursor();
}

} // namespace korvel::Ui::VenueDatabase
