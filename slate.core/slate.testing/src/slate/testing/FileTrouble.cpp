#include "slate/testing/FileTrouble.h"

#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <unistd.h>

namespace Slate::Testing {

namespace fs = std::filesystem;

namespace {

constexpr uid_t nobody = 65534;

} // namespace

Denied::Denied(fs::path path, fs::perms left)
    : path_(std::move(path)), rights_before_(fs::status(path_).permissions()), user_before_(geteuid()) {
    fs::permissions(path_, left);
    if (user_before_ == 0 && seteuid(nobody) != 0)
        throw std::runtime_error("cannot act as another user");
}

Denied::~Denied() {
    if (user_before_ == 0 && seteuid(user_before_) != 0)
        std::abort();
    std::error_code ignored;
    fs::permissions(path_, rights_before_, ignored);
}

WorkingDirectory::WorkingDirectory(fs::path const& path) { fs::current_path(path); }

WorkingDirectory::~WorkingDirectory() {
    std::error_code ignored;
    fs::current_path(before_, ignored);
}

std::string thrownBy(std::function<void()> const& call) {
    try {
        call();
        return "nothing";
    } catch (fs::filesystem_error const& error) {
        // The standard library writes "filesystem error: OPERATION: REASON [PATH]".
        std::string_view const introduction = "filesystem error: ";
        std::string text = error.what();
        if (!text.starts_with(introduction))
            return text;
        auto const operation = text.substr(introduction.size());
        return operation.substr(0, operation.find(": ")) + " " + error.path1().string();
    } catch (std::runtime_error const& error) {
        return error.what();
    }
}

} // namespace Slate::Testing
