// winch FILE: loads the model `Winch` of a file and prints what it comes to. The exit status is 1 if the file
// has mistakes, and 2 if it could not be read.

#include "CsvPlugin.h"
#include "ErrorText.h"
#include "Natives.h"
#include "slate/SlateCoreApi.h"

#include <exception>
#include <iostream>
#include <memory>

namespace {

using namespace Slate::Core;

/// What an object holds is read by dotted keys. The readers throw if there is no such value, or if it is of
/// another kind.
void print(Object const& winch) {
    std::cout << "rope    " << winch.getObject("rope")->getName() << ", " << winch.getNumber("rope.diameter")
              << " " << winch.getString("drum..unit") << "\n" // the annotation `.unit` of the drum
              << "load    " << winch.getNumber("load.mass") << " kg\n"
              << "force   " << winch.getNumber("force") << " N\n"
              << "safety  " << winch.getNumber("safety") << "\n"
              << "layers  " << winch.getDynamic("layers").asInt() << "\n"
              << "motor   " << winch.getNumber("motor.power") << " kW\n";
}

/// One context a load: a context keeps all documents and errors, and another load would find them there.
int load(char const* file) {
    Api::SlateContext context(Slate::StringVector{}); // no bundles but that of the file itself
    Winch::registerNatives(*context.getEvaluatorContext());
    Api::registerPlugin(std::make_shared<Winch::CsvPlugin>(), context);

    auto const winch = Api::loadModelFromFile(file, "Winch", context);
    Winch::ErrorText text;
    for (auto const& error : context.getErrors())
        std::cerr << error->accept(text) << "\n";
    // Mistakes alone do not make the answer empty: what could be evaluated is there.
    if (!winch || context.hasErrors())
        return 1;
    print(*winch);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: winch FILE\n";
        return 2;
    }
    try {
        return load(argv[1]);
    } catch (std::exception const& failure) {
        // The file system, a bad config.slate, or an exception of a native.
        std::cerr << "winch: " << failure.what() << "\n";
        return 2;
    }
}
