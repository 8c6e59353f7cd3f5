#pragma once

#include "slate/Any.h"
#include "slate/NamedList.h"
#include "slate/NodeTypes.h"
#include "slate/Uuid.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Slate::Core {

class JsonWriter;

/// The instance of a model: attributes by key, in the order in which they were first set, with a type, an
/// owner, a name and annotations.
///
/// Hosts derive from it for native classes; what is virtual here is what they may replace. An owner and what
/// it owns keep one another alive. Objects live in shared pointers, are not synchronised, and belong to the
/// thread of their context.
class Object {
  public:
    Object();
    explicit Object(std::string name);

    Object(Object const&) = delete;
    Object& operator=(Object const&) = delete;

    virtual ~Object();

    /// Gives the object a new uuid.
    virtual void on_init();

    /// Sets an attribute; a key that is there already keeps its place.
    virtual void setDynamic(std::string const& key, Any value);

    /// Appends the objects that attributes hold, in order; not those in arrays.
    virtual void extractObjectFieldsTo(std::vector<std::shared_ptr<Object>>& output) const;

    /// Appends the keys and values of all attributes, in order: what is printed.
    virtual void extractEntriesTo(std::vector<std::pair<std::string, Any>>& output) const;

    /// Makes room for that many attributes.
    void reserveAttributes(std::size_t count) { attributes_.reserve(count); }

    /// Sets an attribute and whether its value comes from its declaration, past what native classes replace.
    /// Answers whether it held an object before.
    bool assign(std::string_view key, Any value, bool is_default);

    /// The value of an attribute; `Undefined` if there is none.
    virtual Any getDynamic(std::string const& key) const;

    /// Calls a method. Here there are none: logs an error and answers `Undefined`.
    virtual Any callDynamic(std::string const& key, std::vector<Any> const& args);

    /// Called once the whole tree is evaluated: gives the object a new uuid, the first time.
    virtual void triggerOnInit();

    std::string getName() const { return name_; }

    void setName(std::string name) { name_ = std::move(name); }

    /// Empty until initialised.
    std::string getUuid() const { return uuid_ ? uuid_->toString() : std::string(); }

    bool hasUuid() const { return uuid_.has_value(); }

    /// The model that this is an instance of; empty for what natives make until it is adopted.
    ModelDeclPtr getType() const { return type_; }

    void setType(ModelDeclPtr type) { type_ = std::move(type); }

    /// The names of the native classes, base first.
    std::vector<std::string> const& getTypeList() const;

    /// For constructors of native classes.
    void appendToTypeList(std::string class_name);

    /// The object that holds this one; may be empty.
    std::shared_ptr<Object> getOwner() const { return owner_; }

    void setOwner(std::shared_ptr<Object> owner) { owner_ = std::move(owner); }

    vec<AnnotationPtr> const& getAnnotations() const { return annotations_; }

    void appendToAnnotations(AnnotationPtr annotation) { annotations_.push_back(std::move(annotation)); }

    /// Those of that name, in order.
    vec<AnnotationPtr> findAnnotations(std::string_view name) const;

    /// Does the value of the key come from the attribute's declaration?
    bool isDefault(std::string_view key) const;

    void setIsDefault(std::string const& key);

    /// Adds all objects that can be reached through attributes, as `extractObjectFieldsTo` gives them.
    void extractNestedObjectFieldsTo(std::unordered_set<std::shared_ptr<Object>>& output) const;

    /// Calls `visit(object)` for each object that this one holds by itself: the owner, and those in
    /// attributes, arrays included. An object held twice is visited twice.
    void visitLinks(std::function<void(std::shared_ptr<Object> const&)> const& visit) const;

    /// Lets the owner and all attributes go.
    void dropLinks();

    // Readers of dotted keys, `pump.motor.power`. `pump..unit` reads the annotation `unit` of `pump`, if it
    // has one. They throw `std::runtime_error` for an empty key, if something on the way is no object, and if
    // the value is of another kind or absent.

    /// Of an `Int` too.
    double getNumber(std::string const& key) const;
    bool getBool(std::string const& key) const;
    std::string getString(std::string const& key) const;

    /// Empty instead of a failure; has no annotations.
    std::shared_ptr<Object> getObject(std::string const& key) const;

    /// The object as JSON text without blanks. Objects in it that have a uuid are written in full with
    /// `follow_refs`, else as their name, uuid and type list. Names and keys are written as they are.
    std::string toJson(bool follow_refs = false) const;

    /// `toJson(true)`, under the name that Python looks for.
    // NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming)
    std::string __str__() const;

    /// Writes the members without the braces around them. `visited`: the objects that are being written.
    void writeMembersAsJson(std::ostream& out, std::unordered_set<Object const*>& visited,
                            bool follow_refs) const;
    void writeValueAsJson(std::ostream& out, Any const& value, std::unordered_set<Object const*>& visited,
                          bool follow_refs) const;

  private:
    friend class JsonWriter;

    static void writeMembersAsJson(JsonWriter& writer, Object const& object);
    static void writeValueAsJson(JsonWriter& writer, Object const& owner, Any const& value);

    struct Attribute {
        [[no_unique_address]] Any value; // the next one stands in its padding
        bool is_default = false;
    };

    std::unique_ptr<std::vector<std::string>> type_list_; // only of native classes
    std::optional<Uuid> uuid_;
    bool on_init_done_ = false;
    NamedList<Attribute> attributes_;
    vec<AnnotationPtr> annotations_;
    std::unique_ptr<NameSet> default_keys_; // those that native classes keep elsewhere
    ModelDeclPtr type_;
    std::string name_;
    std::shared_ptr<Object> owner_;
};

} // namespace Slate::Core
