%nodefaultctor Slate::Document;

namespace Slate {

class Document : public Node {
  public:
    static DocPtr create(std::string const & source_id, vec<NodePtr> const & members);

    DocPtr asDocument() override;
    void accept(NodeVisitor & visitor) override;
    void unbind() override;

    void appendToNamespace(std::string ns_str);
    std::vector<std::string> const & getNamespace() const;
    void copyNamespace(Document const & other);
    std::string joinNamespace(std::string const & separator) const;
    std::string joinNamespaceWithPrefix(std::string const & separator, std::string const & prefix = "Slate") const;
    std::string joinNamespaceSkipFirst(std::string const & separator) const;
    bool compareNamespace(Document const & other) const;

    void cacheNsLookup(std::string const & key, NodePtr node, DocPtr const & source_document);
    NodePtr nsLookup(std::string const & key) const;
    NodePtr nsLookupConstOrVar(std::string const & key) const;
    void copyNsCacheFrom(Document const & other);
    void clearNsCache();

    void appendToMembers(NodePtr member);
    vec<NodePtr> const & getMembers() const;
    void removeMember(NodePtr const & member);
    void removeInvalidMembers();
    vec<ImportPtr> findImports() const;
    vec<NodePtr> findMembers(std::string const & name) const;
    NodePtr findFirstMemberOfType(std::string const & name, NodeType type) const;
    NodePtr findFirstMember(std::string const & name) const;
    NodePtr findLastMemberOfType(NodeType type) const;

    std::string getSourceId() const;
    void setSourceId(std::string const & source_id);
};

} // namespace Slate
