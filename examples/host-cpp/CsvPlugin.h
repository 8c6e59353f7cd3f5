#pragma once

#include "slate/Plugin.h"

#include <string>

namespace Winch {

// The numbers of this plug-in's own errors. Those of the core end below 40000.
constexpr Slate::error_code_t err_no_row_model = 90001;
constexpr Slate::error_code_t err_wrong_cell_count = 90002;

/// Imports tables: `import @"ropes.csv" as Rope` makes of each row a const model that extends `Rope`.
///
/// The first line names the attributes, the first column the models. Cells are parted by commas; a comma or a
/// quote within a cell is more than this example reads.
class CsvPlugin : public Slate::Plugin {
  public:
    Slate::DocPtr parse(std::string const& key, Slate::ImportPtr import_node,
                        Slate::ErrorReporter& error_reporter) override;

    Slate::StringVector extensions() override { return {".csv"}; }

    /// Nothing to do: numbers stay as they are written.
    void setPrecision(int /*precision*/) override {}

    /// So `parse` gets the text of the file, and needs not read it.
    bool keyShouldBeSource() override { return true; }
};

} // namespace Winch
