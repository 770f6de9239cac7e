#pragma once

#include <QUrl>

#include <map>

namespace korvel::Ui::VenueDatabase {

/// The wait cursors of the application that stand for running downloads: one for each download that somebody
/// waits for. Takes back only cursors that it set; all of them when it dies.
///
/// Reports name the address and not the download, may come twice for one, and still come when nobody waits
/// any more. So it remembers the downloads whose cursor is gone: their reports must not take another's.
class DownloadCursors
{
public:
    DownloadCursors() = default;
    Q_DISABLE_COPY_MOVE(DownloadCursors)
    ~DownloadCursors();

    /// A download from \p url starts, and somebody waits for it.
    void Begin(const QUrl& url);
    /// A download from \p url reported; \p isLast when it will not report again. Ends the wait for it. Where
    /// several load from the same address, the report counts for one that nobody waits for, if there is one.
    /// A report of what never began here ends any one wait.
    void EndOne(const QUrl& url, bool isLast);
    /// Nobody waits for any of the downloads any more; they go on.
    void EndAll();

private:
    struct Downloads
    {
        int running = 0;
        int awaited = 0;
    };

    static void EndWait(Downloads& downloads);

    std::map<QUrl, Downloads> m_downloads;
};

} // namespace korvel::Ui::VenueDatabase
