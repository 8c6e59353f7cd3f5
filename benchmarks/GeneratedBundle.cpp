#include "GeneratedBundle.h"

#include <fmt/format.h>

#include <fstream>
#include <string>
#include <unistd.h>

namespace Slate::Benchmarks {

namespace {

std::string generateModels(std::size_t file, std::size_t count) {
    std::string text;
    for (std::size_t model = 0; model < count; ++model) {
        text += fmt::format("Part{0}_{1}:\n"
                            "    mass is Real: {1}.5\n"
                            "    length is Real: 2 * mass + {0}\n"
                            "    next is part{0}.Part{0}_{2}\n\n",
                            file, model, (model + 1) % count);
    }
    return text;
}

} // namespace

GeneratedBundle::GeneratedBundle(std::size_t file_count, std::size_t models_a_file)
    : directory_(std::filesystem::temp_directory_path() / fmt::format("slate-benchmark-{}", getpid())) {
    std::filesystem::create_directories(directory_);
    std::ofstream(directory_ / "config.slate") << "config is BundleConfig:\n    name: \"parts\"\n";
    for (std::size_t file = 0; file < file_count; ++file) {
        auto const path = fileOf(file);
        auto const text = generateModels(file, models_a_file);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << text;
        size_in_bytes_ += text.size();
    }
}

GeneratedBundle::~GeneratedBundle() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

std::filesystem::path GeneratedBundle::firstFile() const { return fileOf(0); }

std::filesystem::path GeneratedBundle::fileOf(std::size_t number) const {
    return directory_ / fmt::format("part{}", number) / "models.slate";
}

} // namespace Slate::Benchmarks
