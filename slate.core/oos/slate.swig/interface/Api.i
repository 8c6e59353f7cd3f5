%nodefaultctor Slate::Plugin;

namespace Slate {

// Only libraries implement it: the core never calls Python.
class Plugin {
  public:
    virtual ~Plugin();

    virtual DocPtr parse(std::string const & key, ImportPtr import_node, ErrorReporter & error_reporter) = 0;
    virtual std::vector<std::string> extensions() = 0;
    virtual void setPrecision(int precision) = 0;
    virtual bool keyShouldBeSource() = 0;
};

} // namespace Slate

namespace Slate::Core::Api {

class SlateContext {
  public:
    SlateContext();
    explicit SlateContext(std::vector<std::string> paths);

    static std::vector<std::string> deriveBundlePaths();
    static std::vector<std::string> deriveBundlePaths(std::string const & path);

    std::vector<std::shared_ptr<Slate::Error>> getErrors() const;
    bool hasErrors() const;
    std::vector<std::shared_ptr<Slate::Core::Object>> getRegisteredObjects() const;
    void release();
    void setNestedDeclarationsAllowed(bool allow_nested);
    bool isNestedDeclarationsAllowed() const;
};

ObjectPtr loadModelFromFile(std::filesystem::path const & slate_file, std::optional<std::string> modelname,
                            SlateContext & slate_context);
ObjectPtr loadModelFromString(std::string const & slate_string, std::optional<std::string> modelname,
                              SlateContext & slate_context);
ObjectPtr loadModelFromDocument(DocPtr const & document, std::optional<std::string> modelname,
                                SlateContext & slate_context);
ObjectPtr analyzeAndEvaluate(SlateContext & slate_context, DocPtr const & document,
                             std::optional<std::string> modelname);
std::shared_ptr<Slate::Analysis::AnalysisContext> analyze(SlateContext & slate_context, ModelDeclPtr model);

std::pair<std::shared_ptr<Slate::Document>, std::vector<std::shared_ptr<Slate::Document>>>
parseFromFile(std::filesystem::path const & slate_file, SlateContext & slate_context);
std::pair<std::shared_ptr<Slate::Document>, std::vector<std::shared_ptr<Slate::Document>>>
parseFromString(std::string const & slate_string, SlateContext & slate_context);

void registerPlugin(std::shared_ptr<Slate::Plugin> plugin, SlateContext & slate_context);
std::vector<std::shared_ptr<Slate::Plugin>> getRegisteredPlugins(SlateContext & slate_context);

} // namespace Slate::Core::Api
