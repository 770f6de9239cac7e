#pragma once

#include <QByteArray>
#include <QByteArrayList>

namespace korvel::Test {

/// A reply that lists a picture for each of \p urls, its small rendition. They are called \p name, with the
/// number from 1 on in place of "@". Longer than what faults leave of a body. Names and addresses stand as
/// they do between quotation marks.
QByteArray PictureList(const QByteArrayList& urls, const QByteArray& name = "Picture @");
/// A reply that lists one model file, likewise.
QByteArray ModelFileList(const QByteArray& name, const QByteArray& path = "/files/hall.tessra",
                         const QByteArray& version = "2.1");
/// \p text as it stands between quotation marks.
QByteArray JsonText(const QString& text);

} // namespace korvel::Test
