// mrvCore/system/genericPatterns/mrvDataPtr.h
// A cursor over a block of memory.
#pragma once

namespace mrv {

/// A borrowed block of memory and a position in it, both in bytes.
///
/// The block must outlive the cursor; nothing is read or written here and no position is checked.
class DataPtr
{
public:
    /// Takes another block; the position is 0.
    void init(void* data, unsigned long size)
    {
        _data = data;
        _size = size;
        reset();
    }

    /// Back to the start of the same block.
    void reset() { _pos = 0; }

    void* getData() const { return _data; }
    unsigned long getSize() const { return _size; }
    unsigned long getPos() const { return _pos; }
    void setPos(unsigned long pos) { _pos = pos; }

private:
    void* _data = nullptr;
    unsigned long _size = 0;
    unsigned long _pos = 0;
};

} // namespace mrv
