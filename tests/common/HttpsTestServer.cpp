#include "tests/common/HttpsTestServer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <chrono>

namespace qpt::testing {

namespace {

// Nothing a test sends is larger; a longer request is cut off.
constexpr qsizetype kMaxRequestBytes = 64 << 20;

int Listen(int& port) {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) return -1;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(fd, 8) != 0 ||
        ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        ::close(fd);
        return -1;
    }
    port = ntohs(address.sin_port);
    return fd;
}

QByteArray ReasonOf(int status) {
    switch (status) {
        case 200:
            return "OK";
        case 400:
            return "Bad Request";
        case 403:
            return "Forbidden";
        case 500:
            return "Internal Server Error";
        default:
            return "Status";
    }
}

void ParseHead(const QByteArray& head, RecordedRequest& request) {
    const QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> first = lines.value(0).trimmed().split(' ');
    request.method = first.value(0);
    request.target = first.value(1);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype colon = lines[i].indexOf(':');
        if (colon > 0)
            request.headers.insert(lines[i].left(colon).trimmed().toLower(),
                                   lines[i].mid(colon + 1).trimmed());
    }
}

}  // namespace

QByteArray RecordedRequest::query() const {
    const qsizetype mark = target.indexOf('?');
    return mark < 0 ? QByteArray() : target.mid(mark + 1);
}

HttpsTestServer::HttpsTestServer(const CertificatePair& identity) {
    context_ = SSL_CTX_new(TLS_server_method());
    if (!context_ || pipe2(wake_, O_CLOEXEC) != 0) return;
    SSL_CTX_set_min_proto_version(context_, TLS1_2_VERSION);
    if (SSL_CTX_use_certificate_chain_file(context_, identity.certificate.toLocal8Bit()) != 1 ||
        SSL_CTX_use_PrivateKey_file(context_, identity.key.toLocal8Bit(), SSL_FILETYPE_PEM) != 1)
        return;
    listener_ = Listen(port_);
    if (listener_ >= 0) thread_ = std::thread([this] { run(); });
}

HttpsTestServer::~HttpsTestServer() {
    // The wake pipe stays readable from now on, so every wait gives up.
    if (wake_[1] >= 0) (void)!::write(wake_[1], "x", 1);
    if (thread_.joinable()) thread_.join();
    for (int fd : {listener_, wake_[0], wake_[1]})
        if (fd >= 0) ::close(fd);
    SSL_CTX_free(context_);
}

QString HttpsTestServer::url(const QString& pathAndQuery) const {
    return QStringLiteral("https://127.0.0.1:%1%2").arg(port_).arg(pathAndQuery);
}

void HttpsTestServer::answer(int status, const QByteArray& body) {
    const std::lock_guard lock(mutex_);
    stall_ = false;
    status_ = status;
    body_ = body;
}

void HttpsTestServer::stall() {
    const std::lock_guard lock(mutex_);
    stall_ = true;
}

std::vector<RecordedRequest> HttpsTestServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

bool HttpsTestServer::waitForRequests(std::size_t count, int ms) {
    std::unique_lock lock(mutex_);
    return received_.wait_for(lock, std::chrono::milliseconds(ms),
                              [&] { return requests_.size() >= count; });
}

int HttpsTestServer::ClosedPort() {
    int port = 0;
    const int fd = Listen(port);
    if (fd >= 0) ::close(fd);
    return port;
}

QByteArray HttpsTestServer::LinkAnswer(const QString& link) {
    const QJsonObject data{{"id", "t3stPic"}, {"type", "image/png"}, {"link", link}};
    return QJsonDocument(QJsonObject{{"data", data}, {"success", true}, {"status", 200}})
        .toJson(QJsonDocument::Compact);
}

void HttpsTestServer::run() {
    // A client that hangs up mid-answer must not end the test program.
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, nullptr);
    for (;;) {
        pollfd fds[2] = {{listener_, POLLIN, 0}, {wake_[0], POLLIN, 0}};
        if (::poll(fds, 2, -1) < 0 || fds[1].revents) return;
        const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (socket < 0) continue;
        serve(socket);
        ::close(socket);
    }
}

void HttpsTestServer::serve(int socket) {
    SSL* ssl = SSL_new(context_);
    SSL_set_fd(ssl, socket);
    RecordedRequest request;
    if (handshake(ssl, socket) && readRequest(ssl, socket, request)) {
        bool stall = false;
        {
            const std::lock_guard lock(mutex_);
            requests_.push_back(request);
            stall = stall_;
        }
        received_.notify_all();
        if (stall)
            holdUntilClosed(ssl, socket);
        else
            respond(ssl, socket);
    }
    SSL_free(ssl);
    ERR_clear_error();
}

bool HttpsTestServer::handshake(SSL* ssl, int socket) {
    return complete(ssl, socket, [&] { return SSL_accept(ssl); }) > 0;
}

bool HttpsTestServer::readRequest(SSL* ssl, int socket, RecordedRequest& request) {
    QByteArray data;
    qsizetype headEnd = -1;
    qsizetype wanted = -1;
    char buffer[16384];
    while (wanted < 0 || data.size() < wanted) {
        const int n = complete(ssl, socket, [&] { return SSL_read(ssl, buffer, sizeof buffer); });
        if (n <= 0 || data.size() > kMaxRequestBytes) return false;
        data.append(buffer, n);
        if (headEnd < 0 && (headEnd = data.indexOf("\r\n\r\n")) >= 0) {
            ParseHead(data.left(headEnd), request);
            wanted = headEnd + 4 + request.headers.value("content-length", "0").toLongLong();
            if (request.headers.value("expect").toLower() == "100-continue") {
                static const char kContinue[] = "HTTP/1.1 100 Continue\r\n\r\n";
                complete(ssl, socket,
                         [&] { return SSL_write(ssl, kContinue, sizeof kContinue - 1); });
            }
        }
    }
    request.body = data.mid(headEnd + 4, wanted - headEnd - 4);
    return true;
}

void HttpsTestServer::respond(SSL* ssl, int socket) {
    QByteArray reply;
    {
        const std::lock_guard lock(mutex_);
        reply = "HTTP/1.1 " + QByteArray::number(status_) + ' ' + ReasonOf(status_) +
                "\r\nContent-Type: application/json\r\nContent-Length: " +
                QByteArray::number(body_.size()) + "\r\nConnection: close\r\n\r\n" + body_;
    }
    complete(ssl, socket, [&] { return SSL_write(ssl, reply.constData(), int(reply.size())); });
    SSL_shutdown(ssl);
}

void HttpsTestServer::holdUntilClosed(SSL* ssl, int socket) {
    char buffer[256];
    while (complete(ssl, socket, [&] { return SSL_read(ssl, buffer, sizeof buffer); }) > 0) {
    }
}

template <class Call>
int HttpsTestServer::complete(SSL* ssl, int socket, Call call) {
    for (;;) {
        const int result = call();
        if (result > 0) return result;
        const int error = SSL_get_error(ssl, result);
        if (error != SSL_ERROR_WANT_READ && error != SSL_ERROR_WANT_WRITE) return result;
        if (!waitForSocket(socket, error == SSL_ERROR_WANT_WRITE)) return -1;
    }
}

bool HttpsTestServer::waitForSocket(int socket, bool forWriting) {
    pollfd fds[2] = {{socket, short(forWriting ? POLLOUT : POLLIN), 0}, {wake_[0], POLLIN, 0}};
    return ::poll(fds, 2, -1) > 0 && !fds[1].revents;
}

}  // namespace qpt::testing
