// The calls of the file system that the standard library makes. Those of this program go before those of the
// C library, also within libraries.

#include "Fault.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Calls the function of that name of the C library, or fails as a broken disk does.
template <typename Result, typename... Arguments>
Result callUnlessToFail(char const* name, Result failure, Arguments... arguments) {
    if (Slate::Faults::isToFail(Slate::Faults::Kind::File)) {
        errno = EIO;
        return failure;
    }
    auto* const function = reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name));
    return function(arguments...);
}

} // namespace

extern "C" {

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name,readability-identifier-naming): C names
// The standard library passes no mode: it creates no files.
int open(char const* path, int flags, ...) { return callUnlessToFail("open", -1, path, flags, 0600); }

int openat(int directory, char const* path, int flags, ...) {
    return callUnlessToFail("openat", -1, directory, path, flags, 0600);
}

FILE* fopen64(char const* path, char const* mode) {
    return callUnlessToFail<FILE*>("fopen64", nullptr, path, mode);
}

ssize_t read(int file, void* buffer, size_t size) {
    return callUnlessToFail<ssize_t>("read", -1, file, buffer, size);
}

int stat(char const* path, struct stat* status) { return callUnlessToFail("stat", -1, path, status); }

int lstat(char const* path, struct stat* status) { return callUnlessToFail("lstat", -1, path, status); }

DIR* fdopendir(int file) { return callUnlessToFail<DIR*>("fdopendir", nullptr, file); }

dirent* readdir(DIR* directory) { return callUnlessToFail<dirent*>("readdir", nullptr, directory); }

char* getcwd(char* buffer, size_t size) { return callUnlessToFail<char*>("getcwd", nullptr, buffer, size); }

// NOLINTEND(readability-inconsistent-declaration-parameter-name,readability-identifier-naming)
}
