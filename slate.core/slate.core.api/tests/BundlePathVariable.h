#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace Slate::Core::Api {

/// Sets or unsets `SLATE_BUNDLE_PATH` for as long as it lives.
class BundlePathVariable {
  public:
    explicit BundlePathVariable(std::optional<std::string> const& value) {
        if (auto const* before = std::getenv(name))
            before_ = before;
        set(value);
    }

    ~BundlePathVariable() { set(before_); }

    BundlePathVariable(BundlePathVariable const&) = delete;
    BundlePathVariable& operator=(BundlePathVariable const&) = delete;

  private:
    static constexpr char const* name = "SLATE_BUNDLE_PATH";

    static void set(std::optional<std::string> const& value) {
        if (value)
            setenv(name, value->c_str(), 1);
        else
            unsetenv(name);
    }

    std::optional<std::string> before_;
};

} // namespace Slate::Core::Api
