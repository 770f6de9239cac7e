#pragma once

#include <QString>

namespace korvel::Tools {

/// How one step of the probe ended.
struct Outcome
{
    bool isOk = false;
    QString text; ///< what was found, or why the step failed
    QString hint; ///< what the user may do about a failure; may be empty

    static Outcome Ok(const QString& text)
    {
        return {true, text, {}};
    }
    static Outcome Failed(const QString& reason, const QString& hint = {})
    {
        return {false, reason, hint};
    }
};

} // namespace korvel::Tools
