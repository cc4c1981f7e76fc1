// Preloaded into a program the start-up bench launches: the first time the
// program sends pixels to the X server, the processor time it has used so
// far, all threads together, goes to the file named by QPT_FIRST_PAINT_FILE.
// That is the program's own cost of reaching its first paint, which the
// bench compares without the noise of other work on a loaded machine.
#include <X11/Xlib.h>
#include <X11/extensions/XShm.h>
#include <dlfcn.h>
#include <xcb/xcb.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

std::atomic<bool> noted{false};

void NoteFirstPaint() {
    if (noted.exchange(true)) return;
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    const char* name = std::getenv("QPT_FIRST_PAINT_FILE");
    if (!name) return;
    if (FILE* file = std::fopen(name, "w")) {
        std::fprintf(file, "%.3f\n", double(used.tv_sec) * 1e3 + double(used.tv_nsec) / 1e6);
        std::fclose(file);
    }
}

// The real function: the X libraries of a toolkit plugin are opened in a
// scope of their own, which the next-object search does not reach.
template <typename Function>
Function* Real(const char* library, const char* name) {
    void* found = dlsym(RTLD_NEXT, name);
    if (!found) found = dlsym(dlopen(library, RTLD_LAZY | RTLD_NOLOAD), name);
    if (!found) std::abort();
    return reinterpret_cast<Function*>(found);
}

}  // namespace

extern "C" {

using XcbShmPutImage = xcb_void_cookie_t(xcb_connection_t*, uint32_t, uint32_t, uint16_t, uint16_t,
                                         uint16_t, uint16_t, uint16_t, uint16_t, int16_t, int16_t,
                                         uint8_t, uint8_t, uint8_t, uint32_t, uint32_t);

__attribute__((visibility("default"))) xcb_void_cookie_t xcb_shm_put_image(
    xcb_connection_t* c, uint32_t drawable, uint32_t gc, uint16_t totalWidth, uint16_t totalHeight,
    uint16_t srcX, uint16_t srcY, uint16_t srcWidth, uint16_t srcHeight, int16_t dstX, int16_t dstY,
    uint8_t depth, uint8_t format, uint8_t sendEvent, uint32_t segment, uint32_t offset) {
    static XcbShmPutImage* real = Real<XcbShmPutImage>("libxcb-shm.so.0", "xcb_shm_put_image");
    NoteFirstPaint();
    return real(c, drawable, gc, totalWidth, totalHeight, srcX, srcY, srcWidth, srcHeight, dstX,
                dstY, depth, format, sendEvent, segment, offset);
}

__attribute__((visibility("default"))) xcb_void_cookie_t xcb_put_image(
    xcb_connection_t* c, uint8_t format, xcb_drawable_t drawable, xcb_gcontext_t gc, uint16_t width,
    uint16_t height, int16_t dstX, int16_t dstY, uint8_t leftPad, uint8_t depth, uint32_t length,
    const uint8_t* data) {
    static auto* real = Real<decltype(xcb_put_image)>("libxcb.so.1", "xcb_put_image");
    NoteFirstPaint();
    return real(c, format, drawable, gc, width, height, dstX, dstY, leftPad, depth, length, data);
}

__attribute__((visibility("default"))) int XPutImage(Display* display, Drawable drawable, GC gc,
                                                     XImage* image, int srcX, int srcY, int dstX,
                                                     int dstY, unsigned width, unsigned height) {
    static auto* real = Real<decltype(XPutImage)>("libX11.so.6", "XPutImage");
    NoteFirstPaint();
    return real(display, drawable, gc, image, srcX, srcY, dstX, dstY, width, height);
}

__attribute__((visibility("default"))) Bool XShmPutImage(Display* display, Drawable drawable, GC gc,
                                                         XImage* image, int srcX, int srcY,
                                                         int dstX, int dstY, unsigned width,
                                                         unsigned height, Bool sendEvent) {
    static auto* real = Real<decltype(XShmPutImage)>("libXext.so.6", "XShmPutImage");
    NoteFirstPaint();
    return real(display, drawable, gc, image, srcX, srcY, dstX, dstY, width, height, sendEvent);
}

}  // extern "C"
