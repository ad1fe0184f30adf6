// hosts/mrvcharacter/mrvLogMessages.h
// What the library logs while an object of this kind lives.
#pragma once

#include "mrvCore/system/log/mrvCallbackLogger.h"

#include <string>
#include <vector>

namespace mrvcharacter {

class LogMessages
{
public:
    LogMessages();
    LogMessages(const LogMessages&) = delete;
    LogMessages& operator=(const LogMessages&) = delete;

    /// In the order of their coming, without the line feed at the end.
    const std::vector<std::string>& get() const { return _messages; }

private:
    static void add(const char* text, void* self);

    std::vector<std::string> _messages;
    mrv::CallbackLogger _logger;
};

} // namespace mrvcharacter
