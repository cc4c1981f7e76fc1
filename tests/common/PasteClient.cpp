#include "tests/common/PasteClient.h"

#include <poll.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>

namespace qpt::testing {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::seconds(10);

template <typename T>
std::unique_ptr<T, decltype(&std::free)> Own(T* p) {
    return {p, &std::free};
}

}  // namespace

PasteClient::PasteClient(const QString& display) {
    c_ = xcb_connect(display.toLatin1().constData(), nullptr);
    if (xcb_connection_has_error(c_)) return;
    xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c_)).data;
    window_ = xcb_generate_id(c_);
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(c_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_flush(c_);
}

PasteClient::~PasteClient() {
    xcb_disconnect(c_);
}

bool PasteClient::IsConnected() const {
    return !xcb_connection_has_error(c_);
}

xcb_atom_t PasteClient::Atom(const char* name) {
    auto reply = Own(xcb_intern_atom_reply(
        c_, xcb_intern_atom(c_, 0, uint16_t(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray PasteClient::AtomName(xcb_atom_t atom) {
    auto reply = Own(xcb_get_atom_name_reply(c_, xcb_get_atom_name(c_, atom), nullptr));
    if (!reply) return {};
    return QByteArray(xcb_get_atom_name_name(reply.get()),
                      xcb_get_atom_name_name_length(reply.get()));
}

xcb_generic_event_t* PasteClient::WaitEvent(
    const std::function<bool(xcb_generic_event_t*)>& wanted) {
    const auto deadline = Clock::now() + kPatience;
    xcb_flush(c_);
    while (Clock::now() < deadline) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(c_)) {
            if (wanted(event)) return event;
            std::free(event);
        }
        pollfd p{xcb_get_file_descriptor(c_), POLLIN, 0};
        ::poll(&p, 1, 100);
    }
    return nullptr;
}

bool PasteClient::WaitSelectionNotify(xcb_atom_t target, xcb_atom_t& property) {
    auto event = Own(WaitEvent([&](xcb_generic_event_t* e) {
        return (e->response_type & 0x7F) == XCB_SELECTION_NOTIFY &&
               reinterpret_cast<xcb_selection_notify_event_t*>(e)->target == target;
    }));
    if (!event) return false;
    property = reinterpret_cast<xcb_selection_notify_event_t*>(event.get())->property;
    return property != XCB_ATOM_NONE;
}

Pasted PasteClient::Paste(const char* target) {
    const xcb_atom_t targetAtom = Atom(target);
    const xcb_atom_t property = Atom("_TEST_PASTE");
    xcb_convert_selection(c_, window_, Atom("CLIPBOARD"), targetAtom, property, XCB_CURRENT_TIME);
    xcb_atom_t answered = XCB_ATOM_NONE;
    if (!WaitSelectionNotify(targetAtom, answered)) return {};
    return Read(answered);
}

// Reads and deletes the property; deleting an INCR property asks the owner
// for the first piece.
Pasted PasteClient::Read(xcb_atom_t property) {
    auto reply = Own(xcb_get_property_reply(
        c_,
        xcb_get_property(c_, 1, window_, property, XCB_GET_PROPERTY_TYPE_ANY, 0, UINT32_MAX / 4),
        nullptr));
    Pasted pasted;
    if (!reply || reply->type == XCB_ATOM_NONE) return pasted;
    pasted.converted = true;
    pasted.type = AtomName(reply->type);
    pasted.format = reply->format;
    pasted.bytes = QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()));
    if (pasted.type == "INCR") ReadIncrementally(property, pasted);
    return pasted;
}

void PasteClient::ReadIncrementally(xcb_atom_t property, Pasted& pasted) {
    pasted.incremental = true;
    pasted.bytes.clear();
    for (;;) {
        auto event = Own(WaitEvent([&](xcb_generic_event_t* e) {
            auto* n = reinterpret_cast<xcb_property_notify_event_t*>(e);
            return (e->response_type & 0x7F) == XCB_PROPERTY_NOTIFY && n->window == window_ &&
                   n->atom == property && n->state == XCB_PROPERTY_NEW_VALUE;
        }));
        if (!event) {
            pasted.converted = false;
            return;
        }
        auto piece = Own(
            xcb_get_property_reply(c_,
                                   xcb_get_property(c_, 1, window_, property,
                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, UINT32_MAX / 4),
                                   nullptr));
        const int length = piece ? xcb_get_property_value_length(piece.get()) : 0;
        if (length == 0) return;
        pasted.type = AtomName(piece->type);
        pasted.format = piece->format;
        pasted.bytes.append(static_cast<const char*>(xcb_get_property_value(piece.get())), length);
        ++pasted.pieces;
    }
}

std::vector<xcb_atom_t> PasteClient::PasteMultiple(
    const std::vector<std::pair<const char*, const char*>>& pairs, std::vector<Pasted>& each) {
    std::vector<xcb_atom_t> list;
    for (const auto& [target, property] : pairs)
        list.insert(list.end(), {Atom(target), Atom(property)});
    const xcb_atom_t multiple = Atom("MULTIPLE");
    const xcb_atom_t pairProperty = Atom("_TEST_PAIRS");
    xcb_change_property(c_, XCB_PROP_MODE_REPLACE, window_, pairProperty, Atom("ATOM_PAIR"), 32,
                        uint32_t(list.size()), list.data());
    xcb_convert_selection(c_, window_, Atom("CLIPBOARD"), multiple, pairProperty, XCB_CURRENT_TIME);
    xcb_atom_t answered = XCB_ATOM_NONE;
    if (!WaitSelectionNotify(multiple, answered)) return {};
    const Pasted written = Read(answered);
    std::vector<xcb_atom_t> result;
    for (qsizetype at = 0; at + 4 <= written.bytes.size(); at += 4) {
        xcb_atom_t atom = 0;
        std::memcpy(&atom, written.bytes.constData() + at, 4);
        result.push_back(atom);
    }
    for (std::size_t i = 1; i < result.size(); i += 2)
        each.push_back(result[i] ? Read(result[i]) : Pasted{});
    return result;
}

xcb_window_t PasteClient::Owner(const char* selection) {
    auto reply = Own(
        xcb_get_selection_owner_reply(c_, xcb_get_selection_owner(c_, Atom(selection)), nullptr));
    return reply ? reply->owner : xcb_window_t(XCB_WINDOW_NONE);
}

void PasteClient::TakeClipboard() {
    xcb_set_selection_owner(c_, window_, Atom("CLIPBOARD"), XCB_CURRENT_TIME);
    xcb_flush(c_);
}

bool PasteClient::WindowExists(xcb_window_t window) {
    auto reply =
        Own(xcb_get_window_attributes_reply(c_, xcb_get_window_attributes(c_, window), nullptr));
    return reply != nullptr;
}

bool PasteClient::WaitFor(const std::function<bool()>& condition, int timeoutMs) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!condition()) {
        if (Clock::now() >= deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

}  // namespace qpt::testing
