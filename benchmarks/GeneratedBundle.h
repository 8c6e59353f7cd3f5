#pragma once

#include <cstddef>
#include <filesystem>

namespace Slate::Benchmarks {

/// A bundle on disk with one file in each of many directories, removed at the end.
class GeneratedBundle {
  public:
    /// `file_count` files in as many directories, each with `models_a_file` models that use one another.
    GeneratedBundle(std::size_t file_count, std::size_t models_a_file);
    ~GeneratedBundle();
    GeneratedBundle(GeneratedBundle const&) = delete;
    GeneratedBundle& operator=(GeneratedBundle const&) = delete;

    std::filesystem::path firstFile() const;

    std::size_t sizeInBytes() const { return size_in_bytes_; }

  private:
    std::filesystem::path fileOf(std::size_t number) const;

    std::filesystem::path directory_;
    std::size_t size_in_bytes_ = 0;
};

} // namespace Slate::Benchmarks
