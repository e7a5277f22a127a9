#include "number.h"

namespace Tavoro::Ctl {

bool readNumber(const QString &text, int most, int &number)
{
    bool ok = false;
    number = text.toInt(&ok);
    return ok && number >= 0 && number <= most;
}

} // namespace Tavoro::Ctl
