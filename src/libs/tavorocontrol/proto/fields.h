#pragma once

/// Declares the keys of a record, once, in the order in which they are written.
///
/// Stands inside the struct, after its members:
/// \code
/// struct s_FTBBody {
///     qint32 enable = 0;
///     qint32 time = 0;
///     TAVORO_FIELDS(enable, time)
/// };
/// \endcode
///
/// The keys are the names of the members. The members may be declared in any order, members that
/// are not listed are neither written nor read, and members of a base class may be listed. The
/// macro generates no reader or writer: TAVORO_CODEC() compiles those in one source file, so that
/// including a record costs the struct alone.
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
