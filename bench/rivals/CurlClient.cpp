#include <bench/rivals/CurlClient.h>

#include <server/VenueServer.h>

#include <curl/curl.h>

namespace korvel::Bench {

namespace {

std::size_t Append(char* data, std::size_t size, std::size_t count, void* body)
{
    static_cast<QByteArray*>(body)->append(data, static_cast<qsizetype>(size * count));
    return size * count;
}

} // namespace

CurlClient::CurlClient(const Demo::VenueServer& server)
    : m_handle(curl_easy_init())
{
    const QByteArray proxy = "http://127.0.0.1:" + QByteArray::number(server.ProxyPort());
    QByteArray authority = server.CaPem();
    curl_blob blob{authority.data(), static_cast<std::size_t>(authority.size()), CURL_BLOB_COPY};
    curl_easy_setopt(m_handle, CURLOPT_PROXY, proxy.constData());
    curl_easy_setopt(m_handle, CURLOPT_HTTPPROXYTUNNEL, 1L);
    curl_easy_setopt(m_handle, CURLOPT_CAINFO_BLOB, &blob);
    curl_easy_setopt(m_handle, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(m_handle, CURLOPT_WRITEFUNCTION, &Append);
}

CurlClient::~CurlClient()
{
    curl_easy_cleanup(m_handle);
}

QByteArray CurlClient::Get(const QByteArray& url)
{
    QByteArray body;
    curl_easy_setopt(m_handle, CURLOPT_URL, url.constData());
    curl_easy_setopt(m_handle, CURLOPT_WRITEDATA, &body);
    return curl_easy_perform(m_handle) == CURLE_OK ? body : QByteArray();
}

} // namespace korvel::Bench
