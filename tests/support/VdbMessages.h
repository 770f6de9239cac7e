#pragma once

#include <QStringList>

namespace korvel::Test {

/// Collects what is written to the module's logging categories, "vdb" and "vdb.trace", for as long as it
/// lives; messages of other categories go on to the test's own log. One at a time.
class VdbMessages
{
public:
    VdbMessages();
    ~VdbMessages();
    Q_DISABLE_COPY_MOVE(VdbMessages)

    /// The messages since the last call, in order. Critical ones as they are, others with their severity in
    /// front ("warning: ...").
    static QStringList Take();

    /// Takes the messages and fails the running test unless they match \p patterns, whole and one by one.
    static void Verify(const QStringList& patterns);
};

} // namespace korvel::Test
