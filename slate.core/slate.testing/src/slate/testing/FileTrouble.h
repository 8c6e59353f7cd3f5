#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <sys/types.h>

namespace Slate::Testing {

/// Takes rights to a path away for as long as it lives; from the superuser too, who acts as another
/// meanwhile.
class Denied {
  public:
    explicit Denied(std::filesystem::path path, std::filesystem::perms left = std::filesystem::perms::none);
    ~Denied();
    Denied(Denied const&) = delete;
    Denied& operator=(Denied const&) = delete;

  private:
    std::filesystem::path path_;
    std::filesystem::perms rights_before_;
    uid_t user_before_;
};

/// Changes the working directory for as long as it lives.
class WorkingDirectory {
  public:
    explicit WorkingDirectory(std::filesystem::path const& path);
    ~WorkingDirectory();
    WorkingDirectory(WorkingDirectory const&) = delete;
    WorkingDirectory& operator=(WorkingDirectory const&) = delete;

  private:
    std::filesystem::path before_ = std::filesystem::current_path();
};

/// What a call throws: "OPERATION PATH" for what the file system refused, else the text of the run-time
/// error, else "nothing".
std::string thrownBy(std::function<void()> const& call);

} // namespace Slate::Testing
