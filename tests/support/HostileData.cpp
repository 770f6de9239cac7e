#include <tests/support/HostileData.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/QtVersion.h>

#include <QImage>
#include <QRandomGenerator>
#include <QtEndian>

#include <array>

namespace korvel::Test {

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray Nested(int levels)
{
    return R"({"data":)" + QByteArray(levels, '[') + QByteArray(levels, ']') + "}";
}

QByteArray BigEndian(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

quint32 Crc32(const QByteArray& bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xedb88320 : 0);
    }
    return ~crc;
}

QByteArray PngChunk(const QByteArray& type, const QByteArray& content)
{
    return BigEndian(static_cast<quint32>(content.size())) + type + content
        + BigEndian(Crc32(type + content));
}

QImage Noise(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, random.generate() | 0xff000000);
    return image;
}

} // namespace

QList<NamedBytes> BrokenDocuments(const QByteArray& good)
{
    const QByteArray inside = R"({"data": ")";
    return {
        {"empty", {}},
        {"HTML", "<html></html>"},
        {"only blanks", QByteArray(1000, ' ')},
        {"array", "[" + good + "]"},
        {"text", R"("data")"},
        {"number", "1"},
        {"null", "null"},
        {"trailing bytes", good + "x"},
        {"two documents", good + good},
        {"trailing NUL", good + QByteArray(1, '\0')},
        {"leading NUL", QByteArray(1, '\0') + good},
        {"only NUL", QByteArray(1000, '\0')},
        {"invalid UTF-8", inside + "\xff\xfe\"}"},
        {"overlong UTF-8", inside + "\xc0\xaf\"}"},
        {"UTF-8 cut in a character", inside + "\xe2\x82\"}"},
        {"UTF-16", QByteArray("\xff\xfe{\0}\0", 6)},
        {"NaN", R"({"data": NaN})"},
        {"infinity", R"({"data": -Infinity})"},
        {"comment", "/* none */ " + good},
        {"single quotes", "{'data': []}"},
        {"text without an end", inside + QByteArray(10'000, 'x')},
        {"cut in the middle, length and all", good.left(100)},
        {"1024 levels deep", Nested(1024)},
        {"100,000 levels deep", Nested(100'000)},
        {"100,000 objects deep",
         QByteArray(R"({"data":)").repeated(100'000) + "1" + QByteArray(100'000, '}')},
        {"100,000 levels open", R"({"data":)" + QByteArray(100'000, '[')},
    };
}

QList<NamedText> HostileTexts()
{
    QList<NamedText> texts{
        {"markup", u"<h1>big</h1><script>alert(1)</script>&amp;"_s, {}},
        {"picture of a local file", u"<img src=\"file:///etc/passwd\" width=30000>"_s, {}},
        {"link", u"<a href=\"https://evil.example/\">here</a>"_s, {}},
        {"rich text by its looks", u"<qt>x</qt>"_s, {}},
        {"placeholders", u"%1 %2 %n %L1 ${HOME} $(id)"_s, {}},
        {"mnemonic", u"&File && more"_s, {}},
        {"right-to-left marks", u"a\u202egpj.exe\u202c \u2067x\u2069"_s, {}},
        {"only combining marks", QString(500, QChar(0x0301)), {}},
        {"outside of the first plane", u"\U0001F3AD\U0010FFFD"_s, {}},
        {"10,000 characters without a blank", QString(10'000, u'W'), {}},
    };
    for (NamedText& text : texts)
        text.json = text.text.toUtf8().replace('"', "\\\"");
    texts.append({"U+0000", u"a"_s + QChar(QChar::Null) + u"b"_s, R"(a\u0000b)"});
    texts.append({"control characters", u"a\u0001\u001b[31mb\u007f"_s, R"(a\u0001\u001b[31mb\u007f)"});
    texts.append({"lone surrogates", u"a"_s + QChar(0xd800) + u"b"_s + QChar(0xdc00), R"(a\ud800b\udc00)"});
    return texts;
}

QList<NamedText> HugeTexts()
{
    constexpr qsizetype c_megabyte = 1000 * 1000;
    const auto repeated
        = [](const QString& unit) { return unit.repeated(c_megabyte / unit.toUtf8().size()); };
    return {
        {"one word", repeated(u"W"_s), {}},
        {"many words", repeated(u"Wall "_s), {}},
        {"lines of one character", repeated(u"W\n"_s), {}},
        {"blanks", repeated(u" "_s), {}},
        {"tabs", repeated(u"\t"_s), {}},
        {"control characters", repeated(u"\u0001"_s), {}},
        {"combining marks on one letter", u"a"_s + QString(c_megabyte / 2, QChar(0x0301)), {}},
        {"points on one Hebrew letter", u"\u05d0"_s + QString(c_megabyte / 2, QChar(0x05b0)), {}},
        {"combining marks on many letters", repeated(u"a\u0301"_s), {}},
        {"a script for each character", repeated(u"\u03b1a"_s), {}},
        {"a direction for each character", repeated(u"\u05d0a "_s), {}},
        {"isolates within isolates", repeated(u"\u2067x"_s), {}},
        {"outside of the first plane", repeated(u"\U0001F3AD"_s), {}},
        {"Thai", repeated(u"\u0e01\u0e33"_s), {}},
    };
}

QByteArray NoisePicture(const QSize& size)
{
    return Png(Noise(size));
}

QByteArray BlankPng(const QSize& size)
{
    const std::array<char, 5> oneBitGray{1, 0, 0, 0, 0};
    const QByteArray row(1 + (size.width() + 7) / 8, '\0');
    // qCompress() puts the length in front.
    const QByteArray packed = qCompress(row.repeated(size.height())).mid(4);
    return "\x89PNG\r\n\x1a\n"
        + PngChunk("IHDR",
                   BigEndian(static_cast<quint32>(size.width()))
                       + BigEndian(static_cast<quint32>(size.height()))
                       + QByteArray(oneBitGray.data(), oneBitGray.size()))
        + PngChunk("IDAT", packed) + PngChunk("IEND", {});
}

QList<UndecodablePicture> UndecodablePictures()
{
    const QString tooLarge
        = u"QImageIOHandler: Rejecting image as it exceeds the current allocation limit of %1 megabytes"_s
              .arg(c_allocationLimit);
    const QStringList noJpeg(c_warningsOfJpegError, u"JPEG datastream contains no image"_s);
    const QByteArray png = NoisePicture(QSize(64, 64));
    const QByteArray bmp = Encoded(Noise(QSize(8, 8)), "BMP");
    const QByteArray claimedBmp
        = QByteArray(bmp).replace(18, 8, QByteArray("\xff\xff\xff\x7f\xff\xff\xff\x7f", 8));
    return {
        {"text", "this is no picture", {}},
        {"HTML", "<html><img src='x'></html>", {}},
        {"zeros", QByteArray(10'000, '\0'), {}},
        {"PNG signature only", png.left(8), {}},
        {"PNG cut in its header", png.left(20), {}},
        {"PNG with a wrong header checksum", QByteArray(png).replace(29, 1, "x"), {}},
        {"PNG of no width", BlankPng(QSize(0, 10)), {}},
        {"PNG of 81 megapixels", BlankPng(QSize(9000, 9000)), {tooLarge}, true},
        {"PNG of 1 x 40,000,000 pixels", BlankPng(QSize(1, 40'000'000)).left(2000), {}},
        {"JPEG signature only", "\xff\xd8\xff\xe0",
         QStringList{u"Corrupt JPEG data: 1 extraneous bytes before marker 0xd9"_s} + noJpeg},
        {"JPEG of nothing but ends", QByteArray("\xff\xd8\xff\xd9").repeated(100), noJpeg},
        {"PPM of 10,000,000,000 pixels", "P6 100000 100000 255\n" + QByteArray(1000, 'x'), {}},
        {"PPM of a negative size", "P6 -5 -5 255\n" + QByteArray(1000, 'x'), {}},
        {"XPM that names a file", "/* XPM */ static char* x[] = {\"100000 100000 1 1\",", {}},
        {"BMP of 2^31 pixels each way", claimedBmp, {}},
        {"SVG that names a file",
         R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><image href="file:///etc/passwd"/></svg>)",
         {}},
        {"GIF without a picture", QByteArray("GIF89a\x05\x00\x05\x00\x00\x00\x00;", 14), {}},
    };
}

QList<HostileUrl> HostileUrls(const QString& host, const QString& file)
{
    const QString path = u"/pictures/odd.png"_s;
    const QString pipe = u"file:///dev/stdin"_s;
    return {
        {"ordinary", u"https://"_s + host + path, true},
        {"scheme in capitals", u"HTTPS://"_s + host + path, true},
        {"blanks around", u"  https://"_s + host + path + u"  "_s, false},
        {"relative", u"pictures/odd.png"_s, false},
        {"path only", path, false},
        {"without a scheme", u"//"_s + host + path, false},
        {"file", u"file://"_s + file, false},
        {"file in capitals", u"FILE://"_s + file, false},
        {"file of a host", u"file://localhost"_s + file, false},
        {"file by its path", file, false},
        {"standard input", pipe, false},
        {"process table", u"file:///proc/self/environ"_s, false},
        {"resource", u"qrc:/Resources/korvelFullscreen.svg"_s, false},
        {"resource by its path", u":/Resources/korvelFullscreen.svg"_s, false},
        {"ftp", u"ftp://"_s + host + path, false},
        {"script", u"javascript:alert(1)"_s, false},
        {"mail", u"mailto:someone@korvel.example"_s, false},
        {"drive", u"C:/pictures/odd.png"_s, false},
        {"local server socket", u"unix+https://"_s + host + path, false},
        {"about", u"about:blank"_s, false},
        {"https without a host", u"https:///pictures/odd.png"_s, false},
        {"https alone", u"https:"_s, false},
        {"other port", u"https://"_s + host + u":444"_s + path, false},
        {"port beyond 16 bits", u"https://"_s + host + u":99999"_s + path, false},
        {"port 0", u"https://"_s + host + u":0"_s + path, false},
        {"blank in the host", u"https://a b/pictures/odd.png"_s, false},
        {"half a bracket in the host", u"https://[bad/pictures/odd.png"_s, false},
        {"unknown host", u"https://unknown.example"_s + path, false},
        {"picture in the address that is none", u"data:text/plain,hello"_s, false},
    };
}

} // namespace korvel::Test
