#include <server/log/Answer.h>

#include <QHash>

namespace korvel::Demo {

QByteArray Answer::StatusText(int status)
{
    static const QHash<int, QByteArray> c_texts{
        {200, "OK"},
        {300, "Multiple Choices"},
        {301, "Moved Permanently"},
        {302, "Found"},
        {303, "See Other"},
        {304, "Not Modified"},
        {307, "Temporary Redirect"},
        {308, "Permanent Redirect"},
        {400, "Bad Request"},
        {401, "Unauthorized"},
        {403, "Forbidden"},
        {404, "Not Found"},
        {405, "Method Not Allowed"},
        {407, "Proxy Authentication Required"},
        {410, "Gone"},
        {414, "URI Too Long"},
        {418, "I'm a teapot"},
        {429, "Too Many Requests"},
        {501, "Not Implemented"},
        {502, "Bad Gateway"},
        {503, "Service Unavailable"},
        {504, "Gateway Timeout"},
    };
    return c_texts.value(status, "Internal Server Error");
}

} // namespace korvel::Demo
