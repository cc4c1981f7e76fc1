#include "tests/common/TestCertificates.h"

#include <QProcess>

#include "tests/common/ScratchHome.h"

namespace qpt::testing {

namespace {

const QStringList kEcKey = {"-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes"};

}  // namespace

TestCertificates::TestCertificates() {
    if (!dir_.isValid()) {
        error_ = "no temporary folder";
        return;
    }
    WriteFile(path("server.ext"),
              "subjectAltName=IP:127.0.0.1,DNS:localhost\n"
              "basicConstraints=CA:FALSE\n"
              "keyUsage=critical,digitalSignature\n"
              "extendedKeyUsage=serverAuth\n"
              "subjectKeyIdentifier=hash\n"
              "authorityKeyIdentifier=keyid\n");
    (void)(makeCa("ca") && makeSigned("server", "ca") && makeCa("other-ca") &&
           makeSigned("stranger", "other-ca"));
}

const TestCertificates& TestCertificates::Shared() {
    static const TestCertificates shared;
    return shared;
}

bool TestCertificates::makeCa(const QString& name) {
    return openssl(QStringList{"req", "-x509"} + kEcKey +
                   QStringList{"-keyout", dir_.filePath(name + ".key"), "-out",
                               dir_.filePath(name + ".pem"), "-days", "2", "-subj",
                               "/CN=QptPin test " + name, "-addext",
                               "basicConstraints=critical,CA:TRUE", "-addext",
                               "keyUsage=critical,keyCertSign,cRLSign"});
}

bool TestCertificates::makeSigned(const QString& name, const QString& ca) {
    const QString request = dir_.filePath(name + ".csr");
    return openssl(QStringList{"req", "-new"} + kEcKey +
                   QStringList{"-keyout", dir_.filePath(name + ".key"), "-out", request, "-subj",
                               "/CN=localhost"}) &&
           openssl({"x509", "-req", "-in", request, "-CA", dir_.filePath(ca + ".pem"), "-CAkey",
                    dir_.filePath(ca + ".key"), "-CAcreateserial", "-out",
                    dir_.filePath(name + ".pem"), "-days", "2", "-extfile", path("server.ext")});
}

bool TestCertificates::openssl(const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("openssl", arguments);
    if (process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return true;
    error_ = "openssl " + arguments.join(' ') + ": " + QString::fromLocal8Bit(process.readAll()) +
             process.errorString();
    return false;
}

}  // namespace qpt::testing
