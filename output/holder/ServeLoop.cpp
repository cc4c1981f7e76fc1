#include "output/holder/ServeLoop.h"

#include <poll.h>
#include <unistd.h>

#include <QString>
#include <cstdlib>
#include <memory>

#include "output/holder/ManagerSave.h"
#include "output/holder/SelectionServer.h"
#include "output/holder/TargetTable.h"
#include "support/LogManage.h"

namespace qpt::holder {

namespace {

constexpr uint8_t kBadWindow = 3;

class ServeLoop {
public:
    ServeLoop(HolderDisplay& display, const HeldContent& content, xcb_timestamp_t ownedSince,
              int readyFd)
        : display_(display),
          content_(content),
          table_(display.atoms(), content, ownedSince),
          server_(display, table_, ownedSince),
          manager_(display),
          readyFd_(readyFd) {
        if (!manager_.Ask(table_.KeptTargets(), ownedSince)) KeptHere("no clipboard manager runs");
    }

    void Run() {
        xcb_connection_t* c = display_.Connection();
        while (!xcb_connection_has_error(c)) {
            while (auto* event = xcb_poll_for_event(c)) {
                Dispatch(event);
                std::free(event);
            }
            if (done_ && !server_.Busy()) return;
            xcb_flush(c);
            Wait();
        }
    }

private:
    void Dispatch(xcb_generic_event_t* event);
    void Wait();
    void OnManagerAnswer(const xcb_selection_notify_event_t& event);
    void KeptHere(const char* why);

    HolderDisplay& display_;
    const HeldContent& content_;
    TargetTable table_;
    SelectionServer server_;
    ManagerSave manager_;
    int readyFd_;
    bool done_ = false;
};

void ServeLoop::Dispatch(xcb_generic_event_t* event) {
    PropertyWriter& writer = server_.Writer();
    switch (event->response_type & 0x7F) {
        case 0: {
            const auto* error = reinterpret_cast<xcb_generic_error_t*>(event);
            if (error->error_code == kBadWindow) writer.OnWindowGone(error->resource_id);
            break;
        }
        case XCB_SELECTION_REQUEST:
            server_.OnRequest(*reinterpret_cast<xcb_selection_request_event_t*>(event));
            break;
        case XCB_SELECTION_CLEAR:
            if (reinterpret_cast<xcb_selection_clear_event_t*>(event)->selection ==
                display_.atoms().clipboard)
                done_ = true;
            break;
        case XCB_PROPERTY_NOTIFY:
            writer.OnPropertyNotify(*reinterpret_cast<xcb_property_notify_event_t*>(event));
            break;
        case XCB_DESTROY_NOTIFY:
            writer.OnWindowGone(reinterpret_cast<xcb_destroy_notify_event_t*>(event)->window);
            break;
        case XCB_SELECTION_NOTIFY:
            OnManagerAnswer(*reinterpret_cast<xcb_selection_notify_event_t*>(event));
            break;
    }
}

void ServeLoop::OnManagerAnswer(const xcb_selection_notify_event_t& event) {
    switch (manager_.OnSelectionNotify(event)) {
        case ManagerSave::Outcome::Saved:
            done_ = true;
            break;
        case ManagerSave::Outcome::Refused:
            KeptHere("the clipboard manager did not keep it");
            break;
        case ManagerSave::Outcome::Pending:
            break;
    }
}

void ServeLoop::KeptHere(const char* why) {
    const char* what = content_.IsPicture() ? "picture" : "text";
    WriteLog(QStringLiteral("[ClipboardHolder]%1: the %2 stays on the clipboard until another "
                            "program takes it")
                 .arg(QLatin1String(why), QLatin1String(what)));
}

void ServeLoop::Wait() {
    pollfd fds[2] = {{xcb_get_file_descriptor(display_.Connection()), POLLIN, 0},
                     {readyFd_, POLLIN, 0}};
    const nfds_t count = readyFd_ >= 0 ? 2 : 1;
    int timeout = -1;
    PropertyWriter& writer = server_.Writer();
    if (const auto deadline = writer.NextDeadline()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - Clock::now());
        timeout = int(std::max<int64_t>(0, left.count()));
    }
    if (::poll(fds, count, timeout) > 0 && count == 2 && (fds[1].revents & POLLIN)) {
        uint64_t value = 0;
        [[maybe_unused]] const ssize_t n = ::read(readyFd_, &value, sizeof value);
        readyFd_ = -1;
        server_.OnContentReady();
    }
    writer.DropStale(Clock::now());
}

}  // namespace

void ServeClipboard(HolderDisplay& display, const HeldContent& content, xcb_timestamp_t ownedSince,
                    int readyFd) {
    ServeLoop(display, content, ownedSince, readyFd).Run();
}

}  // namespace qpt::holder
