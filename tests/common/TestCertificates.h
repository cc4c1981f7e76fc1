#pragma once

#include <QString>
#include <QTemporaryDir>

namespace qpt::testing {

// A certificate and its key, both PEM files.
struct CertificatePair {
    QString certificate;
    QString key;
};

// Certificates made for one test with the openssl command: a CA of the test
// and a server certificate for 127.0.0.1 and localhost signed by it, and a
// stranger's certificate for the same names signed by an unrelated CA.
class TestCertificates {
public:
    TestCertificates();

    // One set for the whole test program, made on first use.
    static const TestCertificates& Shared();

    // False when openssl could not make them; `error()` says why.
    bool ok() const { return error_.isEmpty(); }
    QString error() const { return error_; }

    // The CA file a client trusts.
    QString caFile() const { return path("ca.pem"); }
    CertificatePair server() const { return {path("server.pem"), path("server.key")}; }
    CertificatePair stranger() const { return {path("stranger.pem"), path("stranger.key")}; }

private:
    QString path(const char* name) const { return dir_.filePath(QString::fromLatin1(name)); }
    bool makeCa(const QString& name);
    bool makeSigned(const QString& name, const QString& ca);
    bool openssl(const QStringList& arguments);

    QTemporaryDir dir_;
    QString error_;
};

}  // namespace qpt::testing
