#include <tavoromodels/edithandler.h>

namespace Tavoro::Models {

EditHandler::~EditHandler() = default;

} // namespace Tavoro::Models
