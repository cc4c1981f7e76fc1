#include "output/holder/PngEncoding.h"

#include <sys/eventfd.h>

#include <thread>

namespace qpt::holder {

void StartPngEncoding(HeldContent& content, int readyFd) {
    std::thread([&content, readyFd] {
        content.SetPng({});  // TODO wire the engine's PNG encoder
        ::eventfd_write(readyFd, 1);
    }).detach();
}

}  // namespace qpt::holder
