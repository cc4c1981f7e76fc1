#pragma once

#include <xcb/xcb.h>

#include <QByteArray>
#include <QString>
#include <functional>
#include <utility>
#include <vector>

namespace qpt::testing {

// What one conversion of CLIPBOARD brought.
struct Pasted {
    bool converted = false;  // the owner answered with a property
    QByteArray type;
    int format = 0;
    QByteArray bytes;
    bool incremental = false;  // the answer came as INCR
    int pieces = 0;            // non-empty pieces of an INCR answer
};

// A second X client for the clipboard tests, written against the protocol
// itself: it pastes (following INCR by hand), asks for MULTIPLE, takes the
// clipboard, and watches windows come and go.
class PasteClient {
public:
    explicit PasteClient(const QString& display);
    ~PasteClient();
    PasteClient(const PasteClient&) = delete;
    PasteClient& operator=(const PasteClient&) = delete;

    bool IsConnected() const;
    xcb_atom_t Atom(const char* name);

    Pasted Paste(const char* target);
    // Pairs of target and property; gives back the pair list as the owner
    // left it, and what each property held.
    std::vector<xcb_atom_t> PasteMultiple(
        const std::vector<std::pair<const char*, const char*>>& pairs, std::vector<Pasted>& each);

    xcb_window_t Owner(const char* selection);
    void TakeClipboard();
    bool WindowExists(xcb_window_t window);
    // Polls until the condition holds or the time is up.
    static bool WaitFor(const std::function<bool()>& condition, int timeoutMs = 5000);

private:
    xcb_generic_event_t* WaitEvent(const std::function<bool(xcb_generic_event_t*)>& wanted);
    bool WaitSelectionNotify(xcb_atom_t target, xcb_atom_t& property);
    Pasted Read(xcb_atom_t property);
    void ReadIncrementally(xcb_atom_t property, Pasted& pasted);
    QByteArray AtomName(xcb_atom_t atom);

    xcb_connection_t* c_ = nullptr;
    xcb_window_t window_ = 0;
};

}  // namespace qpt::testing
