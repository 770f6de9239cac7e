#pragma once

#include <QtGlobal>

namespace korvel::Test {

// What Qt does differs between its versions; measured with Qt 6.4 and Qt 6.8.
constexpr bool c_isQt68 = QT_VERSION >= QT_VERSION_CHECK(6, 8, 0);

/// A provisional answer (status 1xx) is skipped and the real one read. Qt 6.4 knows that of status 100 alone
/// and takes every other one for the answer.
constexpr bool c_skipsEarlyAnswers = c_isQt68;
/// A proxy that refuses NTLM ends the request. Qt 6.4 asks it again without end.
constexpr bool c_noticesRefusedNtlm = c_isQt68;
/// Of a media type that came twice QNetworkReply::header() tells the first one. Qt 6.4 joins them.
constexpr bool c_tellsFirstMediaType = c_isQt68;
/// Several slashes at the start of a path are sent as they are. Qt 6.4 makes one of them.
constexpr bool c_keepsLeadingSlashes = c_isQt68;
/// How many megabytes a picture may take, where nobody sets it otherwise.
constexpr int c_allocationLimit = c_isQt68 ? 256 : 128;
/// How often Qt warns of what makes the JPEG library give up.
constexpr int c_warningsOfJpegError = c_isQt68 ? 2 : 1;
/// An answer whose header has a line break in a value, as that of a "data" URL can have, gets a warning and
/// no such header.
constexpr bool c_refusesLineBreakInHeader = c_isQt68;
/// Names of headers are sent in small letters.
constexpr bool c_sendsHeaderNamesInSmallLetters = c_isQt68;
/// A time that the local time zone skips is read as the one an hour later; with Qt 6.4 it is invalid.
constexpr bool c_movesSkippedTimes = c_isQt68;

} // namespace korvel::Test
