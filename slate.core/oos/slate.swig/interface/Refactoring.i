namespace Slate::Refactor {

struct ReplaceOp {
    ReplaceOp();

    std::string source_id;
    uint64_t from_line;
    uint64_t from_column;
    uint64_t end_line;
    uint64_t end_column;
    std::string new_content;
};

%nodefaultctor Toolkit;
%nodefaultdtor Toolkit;
class Toolkit {
  public:
    static std::vector<Slate::Refactor::ReplaceOp> renameModel(std::vector<std::shared_ptr<Slate::Document>> documents,
                                                               std::string old_name_with_namespace,
                                                               std::string new_name);
    static std::vector<Slate::Refactor::ReplaceOp> moveModel(std::vector<std::shared_ptr<Slate::Document>> documents,
                                                             std::string model_name_with_namespace,
                                                             std::string new_namespace);
    static std::vector<Slate::Refactor::ReplaceOp>
    moveAndRenameModel(std::vector<std::shared_ptr<Slate::Document>> documents, std::string model_name_with_namespace,
                       std::string new_namespace, std::string new_name);
    static std::vector<Slate::Refactor::ReplaceOp>
    renameNamespace(std::vector<std::shared_ptr<Slate::Document>> documents, std::string old_namespace,
                    std::string new_namespace);
    static std::vector<Slate::Refactor::ReplaceOp>
    renameAttribute(std::vector<std::shared_ptr<Slate::Document>> documents, std::string old_name_with_path,
                    std::string new_name);
    static std::vector<Slate::Refactor::ReplaceOp>
    renameMethod(std::vector<std::shared_ptr<Slate::Document>> documents, std::string old_name_with_path,
                 std::string new_name);
};

} // namespace Slate::Refactor
