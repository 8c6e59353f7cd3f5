#include "slate/fuzz/LoadRecord.h"

#include "slate/testing/ErrorDump.h"

#include <algorithm>
#include <stdexcept>

namespace Slate::Fuzz {

namespace {

std::string withoutUuids(std::string text) {
    std::string const key = R"("__uuid":")";
    for (auto at = text.find(key); at != std::string::npos; at = text.find(key, at)) {
        at += key.size();
        text.replace(at, text.find('"', at) - at, "*");
    }
    return text;
}

} // namespace

LoadRecord recordLoad(std::vector<std::string> const& search_paths,
                      std::function<Core::ObjectPtr(Core::Api::SlateContext&)> const& load) {
    LoadRecord record;
    Core::Api::SlateContext context(search_paths);
    try {
        if (auto const object = load(context))
            record.json = withoutUuids(object->toJson(true));
    } catch (std::runtime_error const& exception) {
        record.exception = exception.what();
    }
    record.errors = context.getErrors();
    for (auto const& error : record.errors)
        record.error_text += Testing::dumpError(*error, true) + "\n";
    return record;
}

bool hasNameToEscape(std::string const& text) {
    for (auto start = text.find('`'); start != std::string::npos; start = text.find('`', start + 1)) {
        auto const end = std::min(text.find_first_of("`\n", start + 1), text.size());
        if (text.substr(start, end - start).find_first_of("\"\\") != std::string::npos)
            return true;
    }
    return false;
}

} // namespace Slate::Fuzz
