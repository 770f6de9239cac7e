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
                     [](const auto& download) { return download.second.running > 0; }))
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
                                        [](const auto& download) { return download.second.awaited > 0; });
        if (other != m_downloads.end())
            EndWait(other->second);
        return;
    }
    Downloads& downloads = known->second;
    if (downloads.awaited > 0 && downloads.awaited == downloads.running)
        EndWait(downloads);
    if (isLast && downloads.running > 0)
        --downloads.running;
}

void DownloadCursors::EndAll()
{
    for (auto& [url, downloads] : m_downloads)
        while (downloads.awaited > 0)
            EndWait(downloads);
}

void DownloadCursors::EndWait(Downloads& downloads)
{
    --downloads.awaited;
    QGuiApplication::restoreOverrideCursor();
}

} // namespace korvel::Ui::VenueDatabase
