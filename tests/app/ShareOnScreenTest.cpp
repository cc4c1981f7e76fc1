// The share menu and the image search of the real program on a private X
// server, uploading to an HTTPS server on loopback that trusts only a CA made
// for the test. A stand-in browser first on PATH records what it is asked to
// open, and a window of the host's class records the notices it is sent.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRandomGenerator>
#include <QThread>
#include <QUrlQuery>
#include <algorithm>
#include <cstdlib>
#include <optional>

#include "output/share/ShareKind.h"
#include "support/MainIni.h"
#include "support/ScreenRecordSettingsData.h"
#include "tests/app/PinnedProgram.h"
#include "tests/common/HostStandIn.h"
#include "tests/common/HttpsTestServer.h"

namespace qpt {
namespace {

using testing::HttpsTestServer;
using testing::TestCertificates;
using testing::WaitFor;

const QString kLink = "https://i.example.com/t3stPic.png";
const QRect kPlace(600, 200, 360, 240);
// The rectangle, share and search buttons along the bar at 1x, and the menu's rows.
constexpr int kRectangleButtonLeft = 246;
constexpr int kShareButtonLeft = 572;
constexpr int kSearchButtonLeft = 602;
constexpr int kMenuRowHeight = 30;

// What the host hears after a Twitter share, whether or not a link came.
const QList<QPoint> kLinkOnClipboard{{3, 1}};

class ShareOnScreen : public testing::PinnedProgram {
protected:
    void SetUp() override {
        PinnedProgram::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        ASSERT_TRUE(certificates_.ok()) << certificates_.error().toStdString();
        ASSERT_TRUE(server_.isListening());
        host_.emplace(c_);
        MakeStandInBrowser();
        PointUploadAt(server_.url("/3/image"));
        server_.answer(200, HttpsTestServer::LinkAnswer(kLink));
        picture_ = testing::Pattern(kPlace.width(), kPlace.height());
    }

    // A script called xdg-open that writes each address it is given on a line.
    void MakeStandInBrowser() {
        const QString bin = env_.root() + "bin/";
        ASSERT_TRUE(QDir().mkpath(bin));
        browserLog_ = env_.root() + "browser.log";
        testing::WriteFile(bin + "xdg-open", "#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"" +
                                                 browserLog_.toUtf8() + "\"\n");
        QFile::setPermissions(bin + "xdg-open", QFile::ReadOwner | QFile::WriteOwner |
                                                    QFile::ExeOwner | QFile::ReadUser |
                                                    QFile::ExeUser);
        env_.setEnv("PATH", (bin + ":" + qEnvironmentVariable("PATH")).toStdString());
    }

    void PointUploadAt(const QString& url) {
        WriteMainIni("Share", "UploadUrl", url);
        WriteMainIni("Share", "CaFile", certificates_.caFile());
    }

    // Pins the picture, brings the toolbar and starts the share of the kind
    // from the share menu or the search button.
    void ShareBy(int kind) {
        QRect bar;
        ASSERT_NO_FATAL_FAILURE(bar = PinWithBar());
        ASSERT_NO_FATAL_FAILURE(StartShare(bar, kind));
    }

    // The toolbar's rectangle once it has come with the first click.
    QRect PinWithBar() {
        Pin(picture_, QRect(kPlace.topLeft(), picture_.size()));
        const QRect window = PinnedWindowRect();
        ClickAt(window.topLeft() + QPoint(window.width() / 2, 10));
        QRect bar;
        EXPECT_TRUE(WaitFor([&] { return !(bar = ToolbarRect()).isEmpty(); }));
        return bar;
    }

    void StartShare(const QRect& bar, int kind) {
        if (kind == skImageSearch) {
            ClickAt(bar.topLeft() + QPoint(kSearchButtonLeft + 9, 20));
            return;
        }
        ClickAt(bar.topLeft() + QPoint(kShareButtonLeft + 9, 20));
        // The menu drops from the share button's left edge, just under the bar.
        const QPoint corner = bar.topLeft() + QPoint(kShareButtonLeft, bar.height() + 2);
        QRect menu;
        ASSERT_TRUE(WaitFor([&] { return !(menu = WindowAt(corner)).isEmpty(); }));
        ClickAt(menu.topLeft() + QPoint(menu.width() / 2, kMenuRowHeight * kind + 15));
    }

    // The mapped window whose top left corner is there.
    QRect WindowAt(QPoint corner) {
        return MappedWindow([&](xcb_window_t w) {
            auto* g = xcb_get_geometry_reply(c_, xcb_get_geometry(c_, w), nullptr);
            const bool there = g && QPoint(g->x, g->y) == corner;
            std::free(g);
            return there;
        });
    }

    QRect UploadWindowRect() {
        return MappedWindow(
            [&](xcb_window_t w) { return Property(w, "WM_WINDOW_ROLE") == "FmUpload"; });
    }

    // The process has ended by itself, with code 0.
    bool Ended(int ms = 30000) {
        return program_.waitForFinished(ms) && program_.exitStatus() == QProcess::NormalExit &&
               program_.exitCode() == 0;
    }

    // The addresses the browser was asked to open. The browser runs beside
    // the program, which may already have ended: an expected call is waited
    // for; for none, the test gives a call that was coming time to come.
    QStringList BrowserCalls(bool expectOne) {
        const auto read = [&] {
            const QString text = QString::fromUtf8(testing::ReadFile(browserLog_));
            return text.split('\n', Qt::SkipEmptyParts);
        };
        if (expectOne)
            WaitFor([&] { return !read().isEmpty(); }, 10000);
        else
            QThread::msleep(1000);
        return read();
    }

    QString ClipboardText() {
        QProcess xclip;
        xclip.start("xclip", {"-o", "-selection", "clipboard"});
        if (!xclip.waitForFinished(10000) || xclip.exitCode() != 0) return {};
        return QString::fromUtf8(xclip.readAllStandardOutput());
    }

    const TestCertificates& certificates_ = TestCertificates::Shared();
    HttpsTestServer server_{certificates_.server()};
    std::optional<testing::HostStandIn> host_;
    QString browserLog_;
    QImage picture_;
};

// A rectangle drawn with the toolbar goes up burnt into the picture: an
// outline of the session's red, four pixels wide, and the picture elsewhere.
TEST_F(ShareOnScreen, TheMarksGoUpBurntIn) {
    QRect bar;
    ASSERT_NO_FATAL_FAILURE(bar = PinWithBar());
    ClickAt(bar.topLeft() + QPoint(kRectangleButtonLeft + 9, 20));
    const QPoint origin = kPlace.topLeft();
    Xdotool({"mousemove", "620", "220", "mousedown", "1", "mousemove", "623", "223", "mousemove",
             "660", "250", "mousemove", "700", "280", "sleep", "0.2", "mouseup", "1"});
    ASSERT_TRUE(WaitFor([&] { return Screen(QRect(660, 221, 1, 1)).pixel(0, 0) == 0xFFFF0000; }));
    ASSERT_NO_FATAL_FAILURE(StartShare(bar, skImageHost));
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    ASSERT_EQ(server_.requests().size(), 1u);
    const QImage posted = QImage::fromData(server_.requests().front().body, "PNG")
                              .convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(posted.size(), picture_.size());
    int red = 0;
    for (int y = 14; y < 28; ++y)
        red += (posted.pixel(660 - origin.x(), y) & 0xFFFFFF) == 0xFF0000;
    EXPECT_EQ(red, 4);
    const QImage expected = picture_.convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(posted.copy(0, 100, 300, 100), expected.copy(0, 100, 300, 100));
    EXPECT_EQ(posted.copy(30, 30, 60, 40), expected.copy(30, 30, 60, 40)) << "inside the outline";
}

class EachKind : public ShareOnScreen, public ::testing::WithParamInterface<int> {};

TEST_P(EachKind, PostsThePictureAndOpensThePageForTheLink) {
    const int kind = GetParam();
    ASSERT_NO_FATAL_FAILURE(ShareBy(kind));
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    EXPECT_EQ(BrowserCalls(true), QStringList{BuildShareAddress(kind, kLink)});

    const std::vector<testing::RecordedRequest> requests = server_.requests();
    ASSERT_EQ(requests.size(), 1u);
    const testing::RecordedRequest& request = requests.front();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.path(), "/3/image");
    EXPECT_EQ(QUrlQuery(QString::fromLatin1(request.query())).queryItemValue("client_id"),
              kDefaultClientId);
    EXPECT_EQ(request.headers.value("content-type"), "image/png");
    const QImage posted = QImage::fromData(request.body, "PNG");
    EXPECT_EQ(posted.convertToFormat(QImage::Format_RGB32),
              picture_.convertToFormat(QImage::Format_RGB32));

    if (kind == skTwitter) {
        EXPECT_EQ(ClipboardText(), kLink) << "the link outlives the process";
        EXPECT_EQ(host_->Notices(), kLinkOnClipboard);
    } else {
        EXPECT_TRUE(host_->Notices().empty());
    }
    if (kind == skImageSearch) {
        EXPECT_EQ(ReadMainIni("Main", "GsearchRed", "0"), "1") << "the red dot goes for good";
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EachKind,
                         ::testing::Values(skFacebook, skTwitter, skPinterest, skImageHost,
                                           skImageSearch));

// However the upload fails, the link is empty: the target page opens
// without it, and the image host's own kind opens nothing.
struct TFailure {
    const char* name;
    int kind;
    friend void PrintTo(const TFailure& f, std::ostream* os) { *os << f.name; }
};

class AFailedUpload : public ShareOnScreen, public ::testing::WithParamInterface<TFailure> {};

TEST_P(AFailedUpload, OpensThePageWithAnEmptyLinkOrNothing) {
    const TFailure failure = GetParam();
    const QByteArray name = failure.name;
    std::optional<HttpsTestServer> stranger;
    if (name == "error status") server_.answer(500, R"({"data":{"link":"x"}})");
    if (name == "broken answer") server_.answer(200, R"({"data":{"link":)");
    if (name == "closed port")
        PointUploadAt(QString("https://127.0.0.1:%1/3/image").arg(HttpsTestServer::ClosedPort()));
    if (name == "stall") {
        WriteMainIni("Share", "UploadTimeoutMs", "1500");
        server_.stall();
    }
    if (name == "another CA") {
        stranger.emplace(certificates_.stranger());
        stranger->answer(200, HttpsTestServer::LinkAnswer(kLink));
        PointUploadAt(stranger->url("/3/image"));
    }
    ASSERT_NO_FATAL_FAILURE(ShareBy(failure.kind));
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    const QString page = BuildShareAddress(failure.kind, QString());
    EXPECT_EQ(BrowserCalls(!page.isEmpty()), page.isEmpty() ? QStringList() : QStringList{page});
    if (stranger) {
        EXPECT_TRUE(stranger->requests().empty()) << "no byte past the handshake";
    }
    if (failure.kind == skTwitter) {
        EXPECT_EQ(host_->Notices(), kLinkOnClipboard);
        EXPECT_NE(ClipboardText(), kLink);
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, AFailedUpload,
                         ::testing::Values(TFailure{"error status", skPinterest},
                                           TFailure{"broken answer", skImageHost},
                                           TFailure{"closed port", skFacebook},
                                           TFailure{"stall", skImageSearch},
                                           TFailure{"another CA", skTwitter}),
                         [](const auto& info) {
                             QString name = QString::fromLatin1(info.param.name);
                             return name.remove(' ').toStdString();
                         });

TEST_F(ShareOnScreen, CancelDuringAStalledUploadEndsAtOnceWithNoPageAndNoNotice) {
    server_.stall();
    ASSERT_NO_FATAL_FAILURE(ShareBy(skTwitter));
    ASSERT_TRUE(server_.waitForRequests(1, 20000));
    QRect window;
    ASSERT_TRUE(WaitFor([&] { return !(window = UploadWindowRect()).isEmpty(); }));
    ClickAt(window.topLeft() + QPoint(300, 52));
    // Well inside the upload's own time-out of 20 seconds.
    ASSERT_TRUE(Ended(10000));
    EXPECT_TRUE(BrowserCalls(false).isEmpty());
    EXPECT_TRUE(host_->Notices().empty());
}

QImage Noise(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < height; ++y)
        random.fillRange(reinterpret_cast<quint32*>(image.scanLine(y)), width);
    return image;
}

// The columns of the bar's middle row that show its blue fill.
int FilledColumns(const QImage& bar) {
    int filled = 0;
    for (int x = 0; x < bar.width(); ++x)
        filled += qBlue(bar.pixel(x, bar.height() / 2)) > 150;
    return filled;
}

// A picture of noise makes a PNG of some megabytes, which goes up in paced
// steps: the bar is seen at several places on its way, and never goes back.
TEST_F(ShareOnScreen, TheBarMovesForwardWhileALargePictureGoesUp) {
    picture_ = Noise(1000, 700);
    ASSERT_NO_FATAL_FAILURE(ShareBy(skImageSearch));
    QRect window;
    ASSERT_TRUE(WaitFor([&] { return !(window = UploadWindowRect()).isEmpty(); }, 10000));
    const QRect barPlace(window.topLeft() + QPoint(20, 47), QSize(261, 10));
    QList<int> seen;
    for (;;) {
        const int filled = FilledColumns(Screen(barPlace));
        // A grab after the window went shows whatever was under it.
        if (UploadWindowRect().isEmpty()) break;
        if (seen.isEmpty() || seen.back() != filled) seen << filled;
        QThread::msleep(40);
    }
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    EXPECT_GE(seen.size(), 3) << "the bar stood still";
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_EQ(BrowserCalls(true), QStringList{BuildShareAddress(skImageSearch, kLink)});
}

}  // namespace
}  // namespace qpt
