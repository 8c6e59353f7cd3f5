#pragma once

#include "slate/ErrorCode.h"

#include <span>
#include <string_view>

namespace Slate::Host {

/// How the example of an error is loaded, where that takes more than one text.
struct ExampleSetup {
    /// The file to load, if not the first one of the text; one that the text does not have does not exist.
    std::string_view file = {};
    std::string_view cured_file = {};
    /// The model to evaluate; empty: the last one of the file.
    std::string_view model = {};
    std::string_view cured_model = {};
    /// A file extension that a plug-in serves, with its dot; empty: there is no plug-in.
    std::string_view plugin_extension = {};
    /// A static method that the host registers for the cured text.
    std::string_view cured_native = {};
    bool nested_declarations_allowed = true;
};

/// What is to be said about one kind of error.
struct ErrorKind {
    error_code_t code = 0;
    /// As in `ErrorCode`, such as "ErrTypeNotFound".
    std::string_view enumerator = {};
    /// The class of the error's record in the core, such as "TypeNotFound".
    std::string_view class_name = {};
    /// The situation in a few words, without names of the source.
    std::string_view summary = {};
    /// The situation for one error, as a pattern of fmt: `{0}` and `{1}` stand for the error's strings.
    std::string_view words = {};
    /// The rule that is broken, in a sentence or two.
    std::string_view rule = {};
    /// The smallest text that raises this error and no other. Lines like "=== mill/gear.slate" begin a file
    /// of that path; without one the text is a single file.
    std::string_view example = {};
    /// The same text without the error.
    std::string_view cure = {};
    ExampleSetup setup = {};
};

/// All kinds, in the order of their numbers.
std::span<ErrorKind const> errorKinds();

/// The kind of that number; null for a number that no error has.
ErrorKind const* findErrorKind(error_code_t code);

} // namespace Slate::Host
