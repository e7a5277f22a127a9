#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/recordcodec.h>

#include <cstdint>

namespace Guards {

struct noFields {
    std::int32_t a;
};

struct emptyList {
    TAVORO_FIELDS()
};

struct otherCount {
    std::int32_t both(std::int32_t first, std::int32_t second) const { return first + second; }
    std::int32_t a;
    std::int32_t b;
    TAVORO_FIELDS(both(a, b))
};

struct repeatedField {
    std::int32_t a;
    TAVORO_FIELDS(a, a)
};

struct unsupportedType {
    double a;
    TAVORO_FIELDS(a)
};

struct base {
    std::int32_t a;
    TAVORO_FIELDS(a)
};

struct inheritedList : base {
    std::int32_t b;
};

struct nothing : base {
    std::int32_t b;
    TAVORO_FIELDS(a, b)
};

} // namespace Guards

TAVORO_CODEC(Guards::MISTAKE)
