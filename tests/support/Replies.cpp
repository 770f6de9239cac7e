#include <tests/support/Replies.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace korvel::Test {

namespace {

QByteArray ReplyWith(const QByteArrayList& included)
{
    return R"({"included": [)" + included.join(',') + "]}" + QByteArray(12'000, ' ');
}

} // namespace

QByteArray PictureList(const QByteArrayList& urls, const QByteArray& name)
{
    QByteArrayList included;
    for (const QByteArray& url : urls) {
        const QByteArray number = QByteArray::number(included.size() + 1);
        const QByteArray text = QByteArray(name).replace('@', number);
        included.append(R"({"type": "picture", "attributes": {"name": ")" + text
                        + R"("}, "relationships": {"file": {"data": {"id": "f)" + number
                        + R"(", "meta": {"alt": ")" + text + R"("}}}}}, {"type": "file", "id": "f)" + number
                        + R"(", "attributes": {"url": "/pictures/odd.png"}, "links": {"small": {"href": ")"
                        + url + R"("}}})");
    }
    return ReplyWith(included);
}

QByteArray ModelFileList(const QByteArray& name, const QByteArray& path, const QByteArray& version)
{
    return ReplyWith({R"({"type": "tessra", "attributes": {"name": ")" + name + R"(", "file_version": ")"
                          + version + R"("}, "relationships": {"file": {"data": {"id": "f"}}}})",
                      R"({"type": "file", "id": "f", "attributes": {"url": ")" + path + R"("}})"});
}

QByteArray JsonText(const QString& text)
{
    // Without the brackets and the quotation marks.
    return QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact).mid(2).chopped(2);
}

} // namespace korvel::Test
