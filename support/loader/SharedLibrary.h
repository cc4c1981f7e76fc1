#pragma once

#include <string>

namespace qpt {

// A library opened by its run-time name when a path that needs it is first
// taken. Linked with the program, it would be mapped and relocated at every
// start, before the picture could show, for a save or share that may never
// come. Once opened it stays loaded for the rest of the process, as a linked
// one would, so the calls found in it never dangle.
class TSharedLibrary {
public:
    explicit TSharedLibrary(const char* soname);

    bool Loaded() const { return Handle != nullptr; }
    // Why the library could not be opened, as the loader put it.
    const std::string& Error() const { return error_; }

    // Sets call to the library's function of that name; false, with call
    // null, when the library is missing or lacks it.
    template <typename T>
    bool Find(const char* name, T& call) const {
        call = reinterpret_cast<T>(Symbol(name));
        return call != nullptr;
    }

private:
    void* Symbol(const char* name) const;

    void* Handle;
    std::string error_;
};

}  // namespace qpt
