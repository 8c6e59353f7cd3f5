#include "slate/Object.h"

#include "slate/Annotation.h"
#include "slate/Log.h"
#include "slate/ModelDeclaration.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace Slate::Core {

Object::Object() : Object(std::string()) {}

Object::Object(std::string name) : name_(std::move(name)) {}

namespace {

void appendObjects(Any const& value, std::vector<std::shared_ptr<Object>>& output) {
    if (value.isObject())
        output.push_back(value.asObject());
    else if (value.isArray())
        std::ranges::for_each(value.asArray(), [&](Any const& element) { appendObjects(element, output); });
}

} // namespace

Object::~Object() {
    // Object by object, and only as far as nobody else holds one: trees may have any depth.
    std::vector<std::shared_ptr<Object>> ahead;
    auto const take_objects = [&ahead](Object& object) {
        for (auto const& [key, attribute] : object.attributes_.entries())
            appendObjects(attribute.value, ahead);
        object.attributes_.take();
    };
    try {
        take_objects(*this);
        while (!ahead.empty()) {
            auto const object = std::move(ahead.back());
            ahead.pop_back();
            if (object.use_count() == 1)
                take_objects(*object);
        }
    } catch (std::bad_alloc const&) { // without memory for the list the rest goes by recursion
    }
}

void Object::on_init() { uuid_ = Uuid::makeRandom(); }

void Object::triggerOnInit() {
    if (on_init_done_)
        return;
    on_init_done_ = true;
    uuid_ = Uuid::makeRandom();
}

void Object::setDynamic(std::string const& key, Any value) {
    attributes_.findOrAdd(key).value = std::move(value);
}

bool Object::assign(std::string_view key, Any value, bool is_default) {
    auto& attribute = attributes_.findOrAdd(key);
    bool const held_object = attribute.value.isObject();
    attribute.value = std::move(value);
    attribute.is_default = attribute.is_default || is_default;
    return held_object;
}

Any Object::getDynamic(std::string const& key) const {
    auto const* const attribute = attributes_.find(key);
    return attribute == nullptr ? Any() : attribute->value;
}

Any Object::callDynamic(std::string const& key, std::vector<Any> const& /*args*/) {
    SLATE_LOG_ERROR("{} was not found and will return Any::Undefined", key);
    return {};
}

void Object::extractObjectFieldsTo(std::vector<std::shared_ptr<Object>>& output) const {
    for (auto const& [key, attribute] : attributes_.entries()) {
        if (!attribute.value.isObject())
            continue;
        if (auto object = attribute.value.asObject())
            output.push_back(std::move(object));
        else
            SLATE_LOG_ERROR("Invalid object in __dynamicFields");
    }
}

void Object::extractEntriesTo(std::vector<std::pair<std::string, Any>>& output) const {
    for (auto const& [key, attribute] : attributes_.entries())
        output.emplace_back(key, attribute.value);
}

std::vector<std::string> const& Object::getTypeList() const {
    static std::vector<std::string> const of_plain_objects{"Slate::Core::Object"};
    return type_list_ ? *type_list_ : of_plain_objects;
}

void Object::appendToTypeList(std::string class_name) {
    if (!type_list_)
        type_list_ = std::make_unique<std::vector<std::string>>(getTypeList());
    type_list_->push_back(std::move(class_name));
}

bool Object::isDefault(std::string_view key) const {
    auto const* const attribute = attributes_.find(key);
    return (attribute != nullptr && attribute->is_default) || (default_keys_ && default_keys_->contains(key));
}

void Object::setIsDefault(std::string const& key) {
    if (auto* const attribute = attributes_.find(key)) {
        attribute->is_default = true;
        return;
    }
    if (!default_keys_)
        default_keys_ = std::make_unique<NameSet>();
    default_keys_->add(key);
}

vec<AnnotationPtr> Object::findAnnotations(std::string_view name) const {
    vec<AnnotationPtr> found;
    std::ranges::copy_if(annotations_, std::back_inserter(found),
                         [name](AnnotationPtr const& annotation) { return annotation->getName() == name; });
    return found;
}

void Object::visitLinks(std::function<void(std::shared_ptr<Object> const&)> const& visit) const {
    if (owner_)
        visit(owner_);
    std::vector<Any const*> ahead;
    for (auto const& [key, attribute] : attributes_.entries())
        ahead.push_back(&attribute.value);
    while (!ahead.empty()) {
        auto const& value = *ahead.back();
        ahead.pop_back();
        if (value.isArray()) {
            for (auto const& element : value.asArray())
                ahead.push_back(&element);
        } else if (auto const object = value.isObject() ? value.asObject() : nullptr) {
            visit(object);
        }
    }
}

void Object::dropLinks() {
    owner_.reset();
    attributes_.take();
}

void Object::extractNestedObjectFieldsTo(std::unordered_set<std::shared_ptr<Object>>& output) const {
    std::vector<std::shared_ptr<Object>> ahead;
    extractObjectFieldsTo(ahead);
    while (!ahead.empty()) {
        auto const object = std::move(ahead.back());
        ahead.pop_back();
        if (object && output.insert(object).second)
            object->extractObjectFieldsTo(ahead);
    }
}

} // namespace Slate::Core
