#include "output/holder/HolderDisplay.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace qpt::holder {

namespace {

// ChangeProperty's own fields take this much of a big request.
constexpr uint32_t kChangePropertyHeader = 28;

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> Own(T* reply) {
    return Reply<T>(reply, &std::free);
}

void InternAll(xcb_connection_t* c, Atoms& atoms) {
    const std::pair<xcb_atom_t Atoms::*, const char*> names[] = {
        {&Atoms::clipboard, "CLIPBOARD"},
        {&Atoms::targets, "TARGETS"},
        {&Atoms::multiple, "MULTIPLE"},
        {&Atoms::timestamp, "TIMESTAMP"},
        {&Atoms::incr, "INCR"},
        {&Atoms::atomPair, "ATOM_PAIR"},
        {&Atoms::png, "image/png"},
        {&Atoms::bmp, "image/bmp"},
        {&Atoms::utf8String, "UTF8_STRING"},
        {&Atoms::textPlainUtf8, "text/plain;charset=utf-8"},
        {&Atoms::textPlain, "text/plain"},
        {&Atoms::manager, "CLIPBOARD_MANAGER"},
        {&Atoms::saveTargets, "SAVE_TARGETS"},
        {&Atoms::saveList, "_QPT_SAVE_TARGETS"},
        {&Atoms::clock, "_QPT_CLOCK"},
    };
    constexpr std::size_t count = std::size(names);
    xcb_intern_atom_cookie_t cookies[count];
    for (std::size_t i = 0; i < count; ++i)
        cookies[i] = xcb_intern_atom(c, 0, uint16_t(std::strlen(names[i].second)), names[i].second);
    for (std::size_t i = 0; i < count; ++i)
        if (auto reply = Own(xcb_intern_atom_reply(c, cookies[i], nullptr)))
            atoms.*names[i].first = reply->atom;
}

}  // namespace

HolderDisplay::~HolderDisplay() {
    Disconnect();
}

void HolderDisplay::Disconnect() {
    if (c_) xcb_disconnect(c_);
    c_ = nullptr;
    window_ = 0;
}

bool HolderDisplay::Connected() const {
    return c_ && !xcb_connection_has_error(c_);
}

bool HolderDisplay::Connect() {
    Disconnect();
    int screenNumber = 0;
    c_ = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(c_)) return false;
    xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(c_));
    for (int i = 0; i < screenNumber && it.rem; ++i)
        xcb_screen_next(&it);
    if (!it.rem) return false;
    window_ = xcb_generate_id(c_);
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(c_, XCB_COPY_FROM_PARENT, window_, it.data->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    InternAll(c_, atoms_);
    maxPropertyBytes_ = xcb_get_maximum_request_length(c_) * 4 - kChangePropertyHeader;
    return Connected();
}

xcb_timestamp_t HolderDisplay::ServerTime() {
    xcb_change_property(c_, XCB_PROP_MODE_APPEND, window_, atoms_.clock, XCB_ATOM_INTEGER, 32, 0,
                        nullptr);
    xcb_flush(c_);
    while (auto event = Own(xcb_wait_for_event(c_))) {
        if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY) continue;
        auto* notify = reinterpret_cast<xcb_property_notify_event_t*>(event.get());
        if (notify->window == window_ && notify->atom == atoms_.clock) return notify->time;
    }
    return XCB_CURRENT_TIME;
}

bool HolderDisplay::TakeClipboard(xcb_timestamp_t time) {
    xcb_set_selection_owner(c_, window_, atoms_.clipboard, time);
    auto reply = Own(
        xcb_get_selection_owner_reply(c_, xcb_get_selection_owner(c_, atoms_.clipboard), nullptr));
    return reply && reply->owner == window_;
}

}  // namespace qpt::holder
