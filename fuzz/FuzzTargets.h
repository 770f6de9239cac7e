#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <utility>

namespace korvel::Fuzz {

/// One entry point of the module that takes what a server nobody controls sends. run() feeds it with an input
/// and ends the program, with the reason, when the module breaks a promise. Needs a QApplication and
/// PrepareApplication().
struct Target
{
    /// Name of the program, of its folder in corpus/ and of its dictionary.
    const char* name = nullptr;
    void (*run)(const QByteArray& input) = nullptr;
};

/// All targets, in alphabetical order.
const QList<Target>& Targets();

/// No request leaves the machine, and what the module logs about hostile input is not shown.
void PrepareApplication();

/// Ends the program with \p promise when \p isKept is false.
void Require(bool isKept, const char* promise);

/// Runs \p release in ReleaseKept().
void ReleaseLater(const std::function<void()>& release);
/// Deletes what Kept() made, the last first. For programs whose application object ends before they do.
void ReleaseKept();
/// The one T of the process, made at its first use: what hosts keep for many replies too.
template <typename T> T& Kept()
{
    static T* object = nullptr;
    if (!object) {
        object = new T;
        ReleaseLater([]() { delete std::exchange(object, nullptr); });
    }
    return *object;
}

/// The parts of \p input between bytes 0xFF, which never occur in UTF-8.
QList<QByteArray> Fields(const QByteArray& input);

/// File contents and a file name into TsFile::CopyToTempFolder(): a byte of flags and size, then the name.
void FuzzFileName(const QByteArray& input);
/// A model-file reply with everything it leads to, file downloads included.
void FuzzModelFileReply(const QByteArray& input);
/// The bytes of a picture into the slider and the viewer.
void FuzzPictureBytes(const QByteArray& input);
/// A picture reply; the downloads are answered without requests.
void FuzzPictureReply(const QByteArray& input);
/// Texts of the server, as Fields(), into the details panel and the captions.
void FuzzServerText(const QByteArray& input);
/// A venue reply into the records, the table and its sorting.
void FuzzVenueReply(const QByteArray& input);

} // namespace korvel::Fuzz
