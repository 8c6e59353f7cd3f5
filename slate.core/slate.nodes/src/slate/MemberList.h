#pragma once

#include "slate/NameIndex.h"
#include "slate/Node.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Slate {

/// The members of a document or model in order, and the look-up of them by name.
///
/// Long lists are looked up in a hash table, which the first look-up builds, `append`
/// keeps up to date, and a removal drops.
class MemberList {
  public:
    /// The name under which a member is found; none for a member that is never found by name.
    using NameOf = std::optional<std::string> (*)(Node& member);

    MemberList(vec<NodePtr> members, NameOf name_of);

    vec<NodePtr> const& getAll() const { return members_; }

    /// Appends a member; an empty pointer is none.
    void append(NodePtr member);

    /// Removes every entry that is this very node, keeping the order of the others, and answers with them.
    vec<NodePtr> remove(NodePtr const& member);

    /// Removes every member that is not valid, keeping the order of the others, and answers with them.
    vec<NodePtr> removeInvalid();

    /// The first member of that name for which `condition(member)` holds, or empty.
    template <typename Condition>
    NodePtr findFirst(std::string_view name, Condition condition) const {
        for (auto i = firstPosition(name); i != none; i = nextPosition(i, name)) {
            if (condition(*members_[i]))
                return members_[i];
        }
        return {};
    }

    /// All members of that name, in order.
    vec<NodePtr> findAll(std::string_view name) const;

  private:
    static constexpr auto none = NameIndex::none;

    /// At each position that of the next member of the same name, 0 behind the last one; at the first one
    /// also that of the last.
    struct Run {
        std::uint32_t next;
        std::uint32_t last;
    };

    bool isShort() const;
    std::size_t firstPosition(std::string_view name) const;
    std::size_t nextPosition(std::size_t position, std::string_view name) const;
    std::size_t scanFrom(std::size_t position, std::string_view name) const;
    std::size_t firstInTable(std::string_view name) const;
    template <typename Condition>
    vec<NodePtr> removeIf(Condition condition);
    void dropTable();
    void buildTable() const;
    void addToTable(std::size_t position) const;

    vec<NodePtr> members_;
    NameOf name_of_;
    // A look-up fills these; they say nothing that the members do not.
    mutable bool has_table_ = false;
    mutable NameIndex runs_; // by the first position of each name
    mutable std::vector<Run> run_at_;
};

} // namespace Slate
