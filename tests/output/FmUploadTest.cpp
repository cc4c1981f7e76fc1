// The upload window in-process against a real HTTPS server on loopback: where
// it stands, how its bar moves, which page each kind opens, what its finish
// receiver is told, and that the close button gives up at once.
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "app/session/SessionMessages.h"
#include "output/FmUpload.h"
#include "output/share/ShareKind.h"
#include "output/share/UploadImage.h"
#include "skin/RdImageButton.h"
#include "skin/RdProgressBar.h"
#include "support/Scale.h"
#include "support/ScreenRecordSettingsData.h"
#include "tests/common/HttpsTestServer.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::HttpsTestServer;
using testing::TestCertificates;

constexpr int kFinished = kMsgShareFinished;
const QString kLink = "https://i.example.com/t3stPic.png";

// Stands in for the browser and for the toolbar that receives the finish.
class Receiver : public QObject {
    Q_OBJECT
public:
    std::vector<QString> opened;
    std::vector<int> finishes;  // wParam of each finish message

    Q_INVOKABLE void open(const QUrl& url) { opened.push_back(url.toString()); }

    bool event(QEvent* event) override {
        const TSessionMessage* message = AsSessionMessage(event);
        if (!message) return QObject::event(event);
        if (message->Id == kFinished) finishes.push_back(message->WParam);
        return true;
    }
};

TFmUpload* UploadWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* form = qobject_cast<TFmUpload*>(widget)) return form;
    return nullptr;
}

class FmUploadTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(certificates_->ok()) << certificates_->error().toStdString();
        CreateSettingsData();
        SettingsData()->UploadUrl = server_.url("/3/image");
        SettingsData()->UploadTimeoutMs = 1000;
        SettingsData()->CaFile = certificates_->caFile();
        path_ = dir_.filePath("QPTShareTemp.png");
        QImage picture(64, 48, QImage::Format_RGB32);
        picture.fill(Qt::darkCyan);
        ASSERT_TRUE(picture.save(path_, "PNG"));
        QDesktopServices::setUrlHandler("https", &receiver_, "open");
    }
    void TearDown() override {
        QDesktopServices::unsetUrlHandler("https");
        delete UploadWindow();
        // The program ends without running exit handlers; a test process
        // runs them, and must not tear the TLS library down under a worker
        // still talking to a stalled server.
        for (const auto& upload : uploads_) {
            upload->Cancel();
            EXPECT_TRUE(upload->WaitForEnd(10000));
        }
    }

    void Start(int kind) {
        StartUpload(path_, kind, "Uploading image...", &receiver_, kFinished, "Close");
        if (TFmUpload* form = UploadWindow(); form && form->UploadThread)
            uploads_.push_back(form->UploadThread);
    }
    bool Finished(int ms = 10000) {
        return QTest::qWaitFor([&] { return !receiver_.finishes.empty(); }, ms);
    }

    const TestCertificates* certificates_ = &TestCertificates::Shared();
    testing::ScratchHome home_;
    HttpsTestServer server_{certificates_->server()};
    QTemporaryDir dir_;
    QString path_;
    Receiver receiver_;
    std::vector<std::shared_ptr<TUploadImage>> uploads_;
};

TEST(UploadWindowPlace, TheLowerRightCornerOfTheWorkArea) {
    // A task bar along the bottom, and one at the right of a second screen.
    EXPECT_EQ(UploadWindowPlace(QRect(0, 0, 1920, 1040), QSize(324, 74)), QPoint(1596, 966));
    EXPECT_EQ(UploadWindowPlace(QRect(1920, 0, 2500, 1440), QSize(648, 148)), QPoint(3772, 1292));
}

TEST_F(FmUploadTest, StandsInTheCornerAtItsSizeOrTwiceThat) {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    for (bool scaled : {false, true}) {
        SetScaleEnabled(scaled);
        TFmUpload form;
        const QSize size = scaled ? QSize(648, 148) : QSize(324, 74);
        EXPECT_EQ(form.size(), size);
        EXPECT_EQ(form.geometry().bottomRight(), area.bottomRight());
        EXPECT_EQ(form.ProUpload->geometry(),
                  scaled ? QRect(40, 94, 522, 20) : QRect(20, 47, 261, 10));
    }
    SetScaleEnabled(false);
}

TEST_F(FmUploadTest, TheBarStartsAtTwoAndNeverRunsBack) {
    server_.stall();
    Start(skFacebook);
    TFmUpload* form = UploadWindow();
    ASSERT_TRUE(form);
    EXPECT_EQ(form->ProUpload->Position(), 2);
    form->ShowProgress(1);
    EXPECT_EQ(form->ProUpload->Position(), 2);
    form->ShowProgress(60);
    form->ShowProgress(40);
    EXPECT_EQ(form->ProUpload->Position(), 60);
    form->ShowProgress(100);
    form->ShowProgress(101);
    EXPECT_EQ(form->ProUpload->Position(), 100);
    // Reading the answer counts as work as well, so the percent may pass 100.
    form->ShowProgress(180);
    EXPECT_EQ(form->ProUpload->Position(), 100);
}

TEST_F(FmUploadTest, EachKindOpensItsPageWithTheLinkAndOnlyTwitterTellsTheHost) {
    server_.answer(200, HttpsTestServer::LinkAnswer(kLink));
    for (int kind : {skFacebook, skTwitter, skPinterest, skImageHost, skImageSearch}) {
        SCOPED_TRACE(kind);
        receiver_.opened.clear();
        receiver_.finishes.clear();
        Start(kind);
        ASSERT_TRUE(Finished());
        EXPECT_EQ(receiver_.opened, std::vector<QString>{BuildShareAddress(kind, kLink)});
        EXPECT_EQ(receiver_.finishes, std::vector<int>{kind == skTwitter ? 1 : 0});
        QTest::qWait(0);
        EXPECT_FALSE(UploadWindow()) << "the window goes once it has closed";
    }
    EXPECT_EQ(server_.requests().size(), 5u);
}

TEST_F(FmUploadTest, AFailedUploadOpensThePageWithAnEmptyLinkButNotTheHostsOwn) {
    server_.answer(500, "<html>down</html>");
    Start(skPinterest);
    ASSERT_TRUE(Finished());
    EXPECT_EQ(receiver_.opened,
              std::vector<QString>{"https://www.pinterest.com/pin/create/button/?url="});
    receiver_.opened.clear();
    receiver_.finishes.clear();
    Start(skImageHost);
    ASSERT_TRUE(Finished());
    EXPECT_TRUE(receiver_.opened.empty());
    EXPECT_EQ(receiver_.finishes, std::vector<int>{0});
}

TEST_F(FmUploadTest, TheCloseButtonGivesUpAtOnceWithNoPageAndNoSecondFinish) {
    server_.stall();
    Start(skTwitter);
    // The main loop must run meanwhile: the worker hands it every step.
    ASSERT_TRUE(QTest::qWaitFor([&] { return server_.requests().size() == 1; }, 10000));
    TFmUpload* form = UploadWindow();
    ASSERT_TRUE(form);
    QTest::mouseClick(form->Btn_Close, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(receiver_.finishes, std::vector<int>{0}) << "told before the click returns";
    // Past the time-out, the worker has long given up: nothing follows.
    QTest::qWait(1500);
    EXPECT_TRUE(receiver_.opened.empty());
    EXPECT_EQ(receiver_.finishes.size(), 1u);
    EXPECT_FALSE(UploadWindow());
}

TEST_F(FmUploadTest, AMissingFileFinishesAtOnceAndShowsNothing) {
    path_ = dir_.filePath("gone.png");
    Start(skFacebook);
    EXPECT_EQ(receiver_.finishes, std::vector<int>{0});
    EXPECT_FALSE(UploadWindow());
    EXPECT_TRUE(server_.requests().empty());
}

}  // namespace
}  // namespace qpt

#include "FmUploadTest.moc"
