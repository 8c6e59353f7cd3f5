#include "slate/Parser.h"

#include "slate/Document.h"
#include "slate/ObjectPool.h"
#include "slate/ParserImpl.h"

namespace Slate {

DocPtr Parser::parse(std::string const& source, std::string const& source_id,
                     std::shared_ptr<ErrorReporter> const& error_reporter, ObjectPool* pool) {
    ObjectPool own_pool;
    return ParserImpl(source, source_id, *error_reporter, pool == nullptr ? own_pool : *pool).parseDocument();
}

} // namespace Slate
