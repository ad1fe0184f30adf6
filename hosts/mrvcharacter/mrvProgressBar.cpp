// hosts/mrvcharacter/mrvProgressBar.cpp
#include "hosts/mrvcharacter/mrvProgressBar.h"

#include "mrvCore/system/progress/mrvProgressEvent.h"

#include <iostream>
#include <string>

#include <unistd.h>

namespace mrvcharacter {

ProgressBar::ProgressBar() : _isTerminal(isatty(STDERR_FILENO) != 0) {}

void ProgressBar::onProgressEvent(const mrv::ProgressEvent& event)
{
    clear();
    const bool isOver =
        event._type == mrv::ProgressEvent::Type::SUCCES || event._type == mrv::ProgressEvent::Type::FAILURE;
    if (!_isTerminal || isOver)
        return;
    constexpr unsigned int width = 40;
    const unsigned int filled = event.getProgressPercentage() * width / 100;
    std::cerr << event._processName.c_str() << " [" << std::string(filled, '#')
              << std::string(width - filled, '.') << "] " << event._done << '/' << event._todo << std::flush;
    _isShown = true;
}

void ProgressBar::clear()
{
    if (_isShown)
        std::cerr << "\r\033[K" << std::flush; // back to the start of the line, and delete to its end
    _isShown = false;
}

} // namespace mrvcharacter
