#include "logging_p.h"

namespace Tavoro::BizModel {

Q_LOGGING_CATEGORY(modelLog, "tavoro.model")

} // namespace Tavoro::BizModel
