#include "output/holder/SelectionServer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace qpt::holder {

namespace {

// Far more pairs than any requestor asks for at once.
constexpr uint32_t kMaxPairWords = 512;

std::vector<xcb_atom_t> ReadPairs(xcb_connection_t* c, xcb_window_t w, xcb_atom_t property,
                                  xcb_atom_t type) {
    auto cookie = xcb_get_property(c, 0, w, property, type, 0, kMaxPairWords);
    std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(c, cookie, nullptr), &std::free);
    if (!reply || reply->format != 32) return {};
    const int count = xcb_get_property_value_length(reply.get()) / 4 / 2 * 2;
    const auto* words = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    return std::vector<xcb_atom_t>(words, words + count);
}

}  // namespace

SelectionServer::SelectionServer(HolderDisplay& display, const TargetTable& table,
                                 xcb_timestamp_t ownedSince)
    : c_(display.Connection()),
      atoms_(display.atoms()),
      owner_(display.Window()),
      table_(table),
      ownedSince_(ownedSince),
      writer_(display.Connection(), display.atoms(), display.MaxPropertyBytes()) {}

bool SelectionServer::Predates(xcb_timestamp_t time) const {
    return time != XCB_CURRENT_TIME && ownedSince_ != XCB_CURRENT_TIME &&
           int32_t(time - ownedSince_) < 0;
}

void SelectionServer::OnRequest(const xcb_selection_request_event_t& request) {
    std::optional<xcb_atom_t> property = XCB_ATOM_NONE;
    if (request.owner == owner_ && request.selection == atoms_.clipboard && !Predates(request.time))
        property = Convert(request);
    if (!property) {
        waiting_.push_back(request);
        return;
    }
    Notify(request, *property);
}

std::optional<xcb_atom_t> SelectionServer::Convert(const xcb_selection_request_event_t& request) {
    // Requestors from before the ICCCM leave the property out; the target
    // then names it.
    const xcb_atom_t property = request.property ? request.property : request.target;
    if (request.target == atoms_.multiple)
        return request.property ? ConvertMultiple(request.requestor, property)
                                : std::optional<xcb_atom_t>(XCB_ATOM_NONE);
    const Answer answer = table_.For(request.target);
    if (answer.status == Answer::Waiting) return std::nullopt;
    if (answer.status == Answer::Refused) return XCB_ATOM_NONE;
    writer_.Write(request.requestor, property, answer);
    return property;
}

// Each pair names a target and the property for it; a pair that cannot be
// converted gets None for its property, and the whole list is written back.
std::optional<xcb_atom_t> SelectionServer::ConvertMultiple(xcb_window_t requestor,
                                                           xcb_atom_t property) {
    std::vector<xcb_atom_t> pairs = ReadPairs(c_, requestor, property, atoms_.atomPair);
    std::vector<Answer> answers;
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        answers.push_back(pairs[i] == atoms_.multiple ? Answer{} : table_.For(pairs[i]));
        if (answers.back().status == Answer::Waiting) return std::nullopt;
    }
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (answers[i].status == Answer::Ready && pairs[2 * i + 1])
            writer_.Write(requestor, pairs[2 * i + 1], answers[i]);
        else
            pairs[2 * i + 1] = XCB_ATOM_NONE;
    }
    xcb_change_property(c_, XCB_PROP_MODE_REPLACE, requestor, property, atoms_.atomPair, 32,
                        uint32_t(pairs.size()), pairs.data());
    return property;
}

void SelectionServer::Notify(const xcb_selection_request_event_t& request, xcb_atom_t property) {
    // SendEvent always reads 32 bytes, more than this event's own fields.
    union {
        xcb_selection_notify_event_t notify;
        char bytes[32];
    } event{};
    xcb_selection_notify_event_t& notify = event.notify;
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = property;
    xcb_send_event(c_, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, event.bytes);
}

void SelectionServer::OnContentReady() {
    std::vector<xcb_selection_request_event_t> waiting;
    waiting.swap(waiting_);
    for (const xcb_selection_request_event_t& request : waiting)
        OnRequest(request);
}

}  // namespace qpt::holder
