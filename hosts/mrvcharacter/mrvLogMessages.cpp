// hosts/mrvcharacter/mrvLogMessages.cpp
#include "hosts/mrvcharacter/mrvLogMessages.h"

namespace mrvcharacter {

LogMessages::LogMessages()
{
    _logger.registerCallback(&LogMessages::add, this);
}

void LogMessages::add(const char* text, void* self)
{
    std::string message = text;
    if (!message.empty() && message.back() == '\n')
        message.pop_back();
    static_cast<LogMessages*>(self)->_messages.push_back(std::move(message));
}

} // namespace mrvcharacter
