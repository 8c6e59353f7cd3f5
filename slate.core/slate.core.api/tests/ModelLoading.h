#pragma once

#include "Loading.h"
#include "slate/EvaluatorContext.h"
#include "slate/ModelDeclaration.h"
#include "slate/Object.h"

#include <optional>
#include <string>

namespace Slate::Core::Api {

/// Loads models, and tells what came of it.
class ModelLoading : public Loading {
  protected:
    static ObjectPtr loadText(std::string const& text, SlateContext& context,
                              std::optional<std::string> const& model = std::nullopt) {
        return loadModelFromString(text, model, context);
    }

    ObjectPtr loadFile(std::string const& relative_path, SlateContext& context,
                       std::optional<std::string> const& model = std::nullopt) const {
        return loadModelFromFile(tree.path(relative_path), model, context);
    }

    static std::string nameOf(ObjectPtr const& object) { return object ? object->getName() : "none"; }

    static bool isInitialised(ObjectPtr const& object) { return object && !object->getUuid().empty(); }

    /// What the log holds but for the progress of the load, as "level function: text (file)".
    Strings logged() const {
        Strings texts;
        for (auto const& line : log.lines()) {
            if (line.level != "debug")
                texts.push_back(
                    inTree(line.level + " " + line.function + ": " + line.text + " (" + line.file + ")"));
        }
        return texts;
    }
};

} // namespace Slate::Core::Api
