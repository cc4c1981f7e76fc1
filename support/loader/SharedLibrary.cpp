#include "support/loader/SharedLibrary.h"

#include <dlfcn.h>

namespace qpt {

// Its own symbols stay out of the global scope so that a library opened later
// cannot bind to them by accident.
TSharedLibrary::TSharedLibrary(const char* soname)
    : Handle(::dlopen(soname, RTLD_NOW | RTLD_LOCAL)) {
    if (Handle) return;
    const char* reason = ::dlerror();
    error_ = reason ? reason : "";
}

void* TSharedLibrary::Symbol(const char* name) const {
    return Handle ? ::dlsym(Handle, name) : nullptr;
}

}  // namespace qpt
