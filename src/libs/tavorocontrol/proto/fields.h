#pragma once

/// Declares the keys of a record, once, in the order in which they travel.
///
/// Stands inside the struct, behind its members:
/// \code
/// struct s_FTBBody {
///     qint32 enable = 0;
///     qint32 time = 0;
///     TAVORO_FIELDS(enable, time)
/// };
/// \endcode
///
/// The keys are the names of the members. The order of the members in memory is free, members that
/// are not listed never travel, and members of a base class may be listed. Nothing is generated
/// here: the readers and writers are compiled once, in the library, and whoever includes a record
/// pays for the struct alone.
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
