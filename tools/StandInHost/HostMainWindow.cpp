#include "HostMainWindow.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "support/HostWindow.h"
#include "support/MainIni.h"

namespace qpt::standin {

namespace {

xcb_connection_t* Connection() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

}  // namespace

HostMainWindow::HostMainWindow(Kind kind) {
    setWindowTitle(kHostWindowTitle);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    status_ = new QLabel(this);
    status_->setWordWrap(true);
    layout->addWidget(status_);
    if (kind == Kind::kStandIn) {
        // The end-to-end tests drive QptPin: the host must not take the focus.
        setWindowFlag(Qt::WindowDoesNotAcceptFocus);
        SetStatus("Stand-in host: QptPin pins the picture.\nNotices are printed in the terminal.");
        return;
    }
    SetStatus(
        "Pin a picture, then draw on it with the toolbar. Copy, save or share it, or "
        "press Esc to throw it away.");
    sample_ = new QPushButton("Pin the sample picture", this);
    region_ = new QPushButton("Pin a region of the screen", this);
    layout->addWidget(sample_);
    layout->addWidget(region_);
    connect(sample_, &QPushButton::clicked, this, &HostMainWindow::PinSampleAsked);
    connect(region_, &QPushButton::clicked, this, &HostMainWindow::PinRegionAsked);
    setMinimumWidth(320);
}

void HostMainWindow::ShowAndPublish() {
    show();
    xcb_connection_t* c = Connection();
    if (!c) return;
    static const char wmClass[] = "standinhost\0TForm_QPTMain";
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(winId()),
                        XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, sizeof(wmClass), wmClass);
    std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));  // a round trip
}

void HostMainWindow::SetStatus(const QString& text) {
    status_->setText(text);
}

void HostMainWindow::SetPinning(bool pinning) {
    if (sample_) sample_->setEnabled(!pinning);
    if (region_) region_->setEnabled(!pinning);
}

void PlaceInCorner(QWidget* window) {
    const QRect work = QGuiApplication::primaryScreen()->availableGeometry();
    window->adjustSize();
    window->move(work.right() - window->width() - 20, work.bottom() - window->height() - 40);
}

QString DescribeNotice(int wParam, int lParam) {
    switch (wParam) {
        case 1:
            return QStringLiteral("The picture went to the clipboard.");
        case 2:
            return "The picture was saved to " + ReadMainIni("TempPath", "ImgPath", "") + ".";
        case 3:
            return QStringLiteral("The picture was shared.");
        default:
            return QStringLiteral("QptPin sent notice %1, %2.").arg(wParam).arg(lParam);
    }
}

NoticePrinter::NoticePrinter(std::function<void(int, int)> onNotice)
    : onNotice_(std::move(onNotice)) {
    if (xcb_connection_t* c = Connection()) {
        auto* reply = xcb_intern_atom_reply(
            c, xcb_intern_atom(c, 0, std::strlen(kHostNoticeAtom), kHostNoticeAtom), nullptr);
        if (reply) noticeAtom_ = reply->atom;
        std::free(reply);
    }
}

bool NoticePrinter::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t") return false;
    auto* event = static_cast<xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) return false;
    auto* client = static_cast<xcb_client_message_event_t*>(message);
    if (client->type != noticeAtom_ || client->format != 32) return false;
    const auto word = [client](int i) { return static_cast<int>(client->data.data32[i]); };
    std::printf("notice %d %d %d\n", word(0), word(1), word(2));
    std::fflush(stdout);
    if (onNotice_ && word(0) == kHostNoticeMessage) onNotice_(word(1), word(2));
    return true;
}

}  // namespace qpt::standin
