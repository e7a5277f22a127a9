#pragma once

/// Declares the fields of a record, in the order in which they are written.
///
/// Use it inside the struct, after the members:
/// \code
/// struct s_FTBBody {
///     qint32 enable = 0;
///     qint32 time = 0;
///     TAVORO_FIELDS(enable, time)
/// };
/// \endcode
///
/// The names of the members are the keys of the JSON object. The order of the list may differ from
/// that of the members. Members that are not listed are neither written nor read; members of a base
/// class may be listed. The macro generates no reader or writer: TAVORO_CODEC() compiles those in
/// one source file, so that headers with records stay cheap to include.
#define TAVORO_FIELDS(...)                                        \
    static constexpr const char *fieldList() noexcept             \
    {                                                             \
        return #__VA_ARGS__;                                      \
    }                                                             \
    template <class Visitor>                                      \
    constexpr decltype(auto) visitFields(Visitor &&visitor)       \
    {                                                             \
        return visitor(__VA_ARGS__);                              \
    }                                                             \
    template <class Visitor>                                      \
    constexpr decltype(auto) visitFields(Visitor &&visitor) const \
    {                                                             \
        return visitor(__VA_ARGS__);                              \
    }
