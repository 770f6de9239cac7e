#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryFile>

namespace korvel::Bench {

/// The JSON:API reader jsona in a Node process of its own, which reads one body as often as it is told.
class JsonaReader
{
public:
    ~JsonaReader();

    /// Starts Node with \p body. False, with the reason in ErrorText(), where Node or the package is missing.
    /// The package is looked for in the folder that the environment variable VDB_BENCH_JSONA names.
    bool Start(const QByteArray& body);
    /// Lets it read the body once; returns the nanoseconds that this took by its own clock, -1 on failure.
    double Read();
    QString ErrorText() const
    {
        return m_errorText;
    }

private:
    QString m_errorText;
    QTemporaryFile m_body;
    QProcess m_process;
};

} // namespace korvel::Bench
