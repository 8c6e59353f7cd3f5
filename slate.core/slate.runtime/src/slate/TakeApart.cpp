#include "slate/TakeApart.h"

#include <unordered_map>
#include <unordered_set>

namespace Slate::Core {

namespace {

using Objects = std::vector<ObjectPtr>;

Objects lockAll(std::vector<std::weak_ptr<Object>> const& objects) {
    Objects alive;
    std::unordered_set<Object const*> known;
    for (auto const& object : objects) {
        auto locked = object.lock();
        if (locked && known.insert(locked.get()).second)
            alive.push_back(std::move(locked));
    }
    return alive;
}

/// Natives make objects of their own, which hold the others like these.
void addReachable(Objects& objects) {
    std::unordered_set<Object const*> known;
    for (auto const& object : objects)
        known.insert(object.get());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        auto const object = objects[i];
        object->visitLinks([&](ObjectPtr const& linked) {
            if (known.insert(linked.get()).second)
                objects.push_back(linked);
        });
    }
}

/// Those that are held by more than this list and one another.
Objects findHeldFromOutside(Objects const& objects) {
    std::unordered_map<Object const*, long> links;
    for (auto const& object : objects)
        object->visitLinks([&links](ObjectPtr const& linked) { ++links[linked.get()]; });
    Objects held;
    for (auto const& object : objects) {
        auto const own_links = links.find(object.get());
        if (object.use_count() > 1 + (own_links == links.end() ? 0 : own_links->second))
            held.push_back(object);
    }
    return held;
}

std::unordered_set<Object const*> findReachable(Objects ahead) {
    std::unordered_set<Object const*> reachable;
    while (!ahead.empty()) {
        auto const object = std::move(ahead.back());
        ahead.pop_back();
        if (reachable.insert(object.get()).second)
            object->visitLinks([&ahead](ObjectPtr const& linked) { ahead.push_back(linked); });
    }
    return reachable;
}

} // namespace

void takeApart(std::vector<std::weak_ptr<Object>> const& objects) {
    auto alive = lockAll(objects);
    addReachable(alive);
    auto const staying = findReachable(findHeldFromOutside(alive));
    for (auto const& object : alive) {
        if (!staying.contains(object.get()))
            object->dropLinks();
    }
}

} // namespace Slate::Core
