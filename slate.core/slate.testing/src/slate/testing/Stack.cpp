#include "slate/testing/Stack.h"

#include <pthread.h>
#include <stdexcept>

namespace Slate::Testing {

void runOnUsualStack(std::function<void()> const& function) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, usual_stack_bytes);

    auto const start = [](void* argument) -> void* {
        (*static_cast<std::function<void()> const*>(argument))();
        return nullptr;
    };
    pthread_t thread = 0;
    auto* const argument = const_cast<std::function<void()>*>(&function);
    int const failure = pthread_create(&thread, &attributes, start, argument);
    pthread_attr_destroy(&attributes);
    if (failure != 0)
        throw std::runtime_error("cannot start a thread");
    pthread_join(thread, nullptr);
}

} // namespace Slate::Testing
