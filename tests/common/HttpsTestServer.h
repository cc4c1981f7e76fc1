#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "tests/common/TestCertificates.h"

typedef struct ssl_ctx_st SSL_CTX;
typedef struct ssl_st SSL;

namespace qpt::testing {

// One request as the server received it.
struct RecordedRequest {
    QByteArray method;
    QByteArray target;                     // path and query
    QMap<QByteArray, QByteArray> headers;  // names in lower case
    QByteArray body;

    QByteArray path() const { return target.left(target.indexOf('?')); }
    QByteArray query() const;
};

// A real HTTPS server on 127.0.0.1 at a port of its own, serving one
// connection at a time on a thread of its own. It records each request whole
// and then answers as told: with a status and a body, or not at all, holding
// the connection until the client gives up or the server stops.
class HttpsTestServer {
public:
    explicit HttpsTestServer(const CertificatePair& identity);
    ~HttpsTestServer();
    HttpsTestServer(const HttpsTestServer&) = delete;
    HttpsTestServer& operator=(const HttpsTestServer&) = delete;

    // False when the certificate could not be loaded or no port was free.
    bool isListening() const { return listener_ >= 0; }
    int port() const { return port_; }
    QString url(const QString& pathAndQuery) const;

    // What every later request gets; a new server answers 200 with "{}".
    void answer(int status, const QByteArray& body);
    void stall();

    std::vector<RecordedRequest> requests() const;
    // Waits until `count` requests have come in whole.
    bool waitForRequests(std::size_t count, int ms);

    // A port on 127.0.0.1 where nothing listens.
    static int ClosedPort();
    // A JSON answer of the image host that carries `link`.
    static QByteArray LinkAnswer(const QString& link);

private:
    void run();
    void serve(int socket);
    bool handshake(SSL* ssl, int socket);
    bool readRequest(SSL* ssl, int socket, RecordedRequest& request);
    void respond(SSL* ssl, int socket);
    void holdUntilClosed(SSL* ssl, int socket);
    // Runs one TLS call to its end over the non-blocking socket; false when
    // it failed or the server is stopping.
    template <class Call>
    int complete(SSL* ssl, int socket, Call call);
    bool waitForSocket(int socket, bool forWriting);

    SSL_CTX* context_ = nullptr;
    int listener_ = -1;
    int port_ = 0;
    int wake_[2] = {-1, -1};
    std::thread thread_;
    mutable std::mutex mutex_;
    std::condition_variable received_;
    std::vector<RecordedRequest> requests_;
    bool stall_ = false;
    int status_ = 200;
    QByteArray body_ = "{}";
};

}  // namespace qpt::testing
