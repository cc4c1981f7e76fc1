// The upload against a real HTTPS server on loopback with a CA made for the
// test: what goes over the wire, how progress reaches the main thread, and
// that every failure ends with an empty link rather than an error.
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <memory>

#include "output/share/UploadImage.h"
#include "tests/common/HttpsTestServer.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::HttpsTestServer;
using testing::TestCertificates;

// Noise barely compresses, so the file takes several steps to send.
QImage Noise(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, random.generate() | 0xFF000000u);
    return image;
}

class UploadImageTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(certificates_->ok()) << certificates_->error().toStdString();
        picture_ = Noise(300, 250);
        path_ = dir_.filePath("QPTShareTemp.png");
        ASSERT_TRUE(picture_.save(path_, "PNG"));
    }

    std::shared_ptr<TUploadImage> Upload(const QString& address, int timeoutMs = 20000) {
        auto upload = TUploadImage::Create();
        upload->FilePath = path_;
        upload->Settings.uploadUrl = address;
        upload->Settings.caFile = certificates_->caFile();
        upload->Settings.timeoutMs = timeoutMs;
        upload->OnProgress = [this](TUploadImage& sender) {
            onMainThread_ = onMainThread_ && QThread::currentThread() == qApp->thread();
            progress_.push_back(sender.Progress());
        };
        upload->OnTerminate = [this](TUploadImage& sender) {
            ++terminated_;
            link_ = sender.Link();
        };
        upload->Start();
        return upload;
    }

    bool Terminated(int ms = 10000) {
        return QTest::qWaitFor([&] { return terminated_ > 0; }, ms);
    }

    const TestCertificates* certificates_ = &TestCertificates::Shared();
    QTemporaryDir dir_;
    QImage picture_;
    QString path_;
    std::vector<int> progress_;
    bool onMainThread_ = true;
    int terminated_ = 0;
    QString link_ = "unset";
};

TEST_F(UploadImageTest, PostsTheRawPictureAndReadsTheLinkFromTheAnswer) {
    HttpsTestServer server(certificates_->server());
    ASSERT_TRUE(server.isListening());
    server.answer(200, HttpsTestServer::LinkAnswer("https://i.example.com/t3stPic.png"));
    auto upload = Upload(server.url("/3/image"));
    ASSERT_TRUE(Terminated());
    EXPECT_EQ(link_, "https://i.example.com/t3stPic.png");
    EXPECT_EQ(terminated_, 1);

    ASSERT_EQ(server.requests().size(), 1u);
    const testing::RecordedRequest request = server.requests().front();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.path(), "/3/image");
    EXPECT_EQ(request.query(), "client_id=0f3e9b1d7a2c486");
    EXPECT_EQ(request.headers.value("content-type"), "image/png");
    EXPECT_EQ(request.body, testing::ReadFile(path_));
    EXPECT_EQ(QImage::fromData(request.body).convertToFormat(QImage::Format_RGB32), picture_);

    // Several steps, each run on the main thread, rising to the whole file.
    EXPECT_TRUE(onMainThread_);
    ASSERT_GE(progress_.size(), 3u);
    EXPECT_TRUE(std::is_sorted(progress_.begin(), progress_.end()));
    EXPECT_LT(progress_.front(), 100);
    EXPECT_GE(progress_.back(), 100);
}

TEST_F(UploadImageTest, EveryFailureEndsWithAnEmptyLink) {
    HttpsTestServer server(certificates_->server());
    HttpsTestServer stranger(certificates_->stranger());
    ASSERT_TRUE(server.isListening() && stranger.isListening());
    const QString closed =
        QStringLiteral("https://127.0.0.1:%1/3/image").arg(HttpsTestServer::ClosedPort());
    struct Case {
        const char* name;
        std::function<void()> arrange;
        QString address;
    };
    const std::vector<Case> cases = {
        {"error status",
         [&] { server.answer(403, R"({"data":{"error":"Invalid client_id"},"status":403})"); },
         server.url("/3/image")},
        {"broken answer", [&] { server.answer(200, R"({"data":{"link":"https://i.ex)"); },
         server.url("/3/image")},
        {"stall past the time-out", [&] { server.stall(); }, server.url("/3/image")},
        {"closed port", [] {}, closed},
        {"certificate of another CA", [] {}, stranger.url("/3/image")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.arrange();
        terminated_ = 0;
        link_ = "unset";
        QElapsedTimer clock;
        clock.start();
        auto upload = Upload(c.address, 1000);
        ASSERT_TRUE(Terminated());
        EXPECT_TRUE(link_.isEmpty()) << link_.toStdString();
        EXPECT_LT(clock.elapsed(), 5000);
    }
    EXPECT_TRUE(stranger.requests().empty())
        << "no request reaches a host the CA does not vouch for";
}

TEST_F(UploadImageTest, CancelDuringAStalledUploadEndsTheWorkerAndRunsNoHandler) {
    HttpsTestServer server(certificates_->server());
    ASSERT_TRUE(server.isListening());
    server.stall();
    auto upload = Upload(server.url("/3/image"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.requests().size() == 1; }, 10000));
    const std::size_t stepsBefore = progress_.size();
    QElapsedTimer clock;
    clock.start();
    upload->Cancel();
    EXPECT_TRUE(upload->WaitForEnd(3000));
    EXPECT_LT(clock.elapsed(), 3000);
    QTest::qWait(200);
    EXPECT_EQ(terminated_, 0);
    EXPECT_EQ(progress_.size(), stepsBefore);
}

TEST_F(UploadImageTest, AMissingFileEndsAtOnceWithNoRequest) {
    HttpsTestServer server(certificates_->server());
    path_ = dir_.filePath("gone.png");
    auto upload = Upload(server.url("/3/image"));
    ASSERT_TRUE(Terminated());
    EXPECT_TRUE(link_.isEmpty());
    EXPECT_TRUE(server.requests().empty());
}

}  // namespace
}  // namespace qpt
