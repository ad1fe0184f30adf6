// hosts/mrvcharacter/mrvProgressCounter.cpp
#include "hosts/mrvcharacter/mrvProgressCounter.h"

#include <iostream>

#include <unistd.h>

namespace mrvcharacter {

ProgressCounter::ProgressCounter(size_t total) : _total(total > 1 && isatty(STDERR_FILENO) != 0 ? total : 0)
{}

void ProgressCounter::next(const std::string& file)
{
    ++_count;
    if (_total == 0)
        return;
    clear();
    std::cerr << _count << '/' << _total << "  " << file << std::flush;
    _isShown = true;
}

void ProgressCounter::clear()
{
    if (_isShown)
        std::cerr << "\r\033[K" << std::flush; // back to the start of the line, and delete to its end
    _isShown = false;
}

} // namespace mrvcharacter
