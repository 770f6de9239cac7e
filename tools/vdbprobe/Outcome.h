#pragma once

#include <QString>
#include <QStringList>

namespace korvel::Tools {

/// How one step of the probe ended.
struct Outcome
{
    bool isOk = false;
    bool canGoOn = false; ///< whether the next steps make sense although this one failed
    QString text; ///< what was found, or why the step failed
    QString hint; ///< what the user may do; may be empty
    QStringList details; ///< for those who want to know more

    static Outcome Ok(const QString& text, const QString& hint = {})
    {
        return {true, true, text, hint, {}};
    }
    static Outcome Failed(const QString& reason, const QString& hint)
    {
        return {false, false, reason, hint, {}};
    }
    /// Something that the module needs is wrong, but not for what follows.
    static Outcome Flawed(const QString& reason, const QString& hint)
    {
        return {false, true, reason, hint, {}};
    }
};

} // namespace korvel::Tools
