#pragma once

#include <tavorocontrol/proto/export.h>

#include <exception>
#include <string>
#include <utility>

namespace ajson {

/// The only exception of the codec. The tokeniser and the readers throw it; \c decodeRecord catches
/// it and returns its text.
class TAVOROPROTO_EXPORT exception : public std::exception {
public:
    explicit exception(std::string message) : m_message(std::move(message)) { }
    ~exception() override;

    const char *what() const noexcept override { return m_message.c_str(); }

private:
    std::string m_message;
};

} // namespace ajson
