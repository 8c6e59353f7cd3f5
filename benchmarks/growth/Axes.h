#pragma once

#include "Axis.h"

namespace Slate::Benchmarks {

/// Texts that are scanned and parsed, and their trees taken apart.
std::vector<Axis> parsingAxes();

/// Programs without mistakes that are analysed, and their last model unfolded.
std::vector<Axis> analysisAxes();

/// Programs that are loaded, from the text to the objects, and objects that are printed as JSON.
std::vector<Axis> objectAxes();

/// Loads of programs with many mistakes of one kind, and the words for them.
std::vector<Axis> errorAxes();

/// Bundles on disk, from the files to an analysis; and what a context gathers.
std::vector<Axis> bundleAxes();

/// Edits that are worked out for programs which have been analysed.
std::vector<Axis> refactoringAxes();

std::vector<Axis> allAxes();

} // namespace Slate::Benchmarks
