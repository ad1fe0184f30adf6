// mrvCore/system/serialization/mrvBinaryStream.cpp
#include "mrvCore/system/serialization/mrvBinaryStream.h"

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/math/types/mrvVector4.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvAttributeIndex.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "mrvCore/system/utils/mrvSafeFileWriter.h"
#include "mrvCore/system/utils/mrvStackSpace.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

namespace mrv {

static_assert(sizeof(long) == 8 && sizeof(int) == 4 && sizeof(short) == 2, "the widths of the file format");
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "numbers are copied as they lie in memory");

struct BinaryStream::Bytes
{
    std::stringstream stream{ std::ios::in | std::ios::out | std::ios::binary };
};

namespace {

// Reaches the areas of a string buffer: a call for every value would cost more than the value.
struct BufferAreas : std::stringbuf
{
    static char* writeNext(std::stringbuf& buffer) { return (buffer.*&BufferAreas::pptr)(); }
    static char* writeEnd(std::stringbuf& buffer) { return (buffer.*&BufferAreas::epptr)(); }
    static char* readBegin(std::stringbuf& buffer) { return (buffer.*&BufferAreas::eback)(); }
    static char* readNext(std::stringbuf& buffer) { return (buffer.*&BufferAreas::gptr)(); }
    static char* readEnd(std::stringbuf& buffer) { return (buffer.*&BufferAreas::egptr)(); }

    static void moveWriteNext(std::stringbuf& buffer, ptrdiff_t distance)
    {
        constexpr ptrdiff_t step = 1 << 30;
        for (; distance > 0; distance -= step)
            (buffer.*&BufferAreas::pbump)(static_cast<int>(std::min(distance, step)));
    }
    static void setRead(std::stringbuf& buffer, char* next, char* end)
    {
        (buffer.*&BufferAreas::setg)(readBegin(buffer), next, end);
    }
};

// Looks at the stack at every eighth level only, which the reserve of hasStackSpace allows.
class DepthGuard
{
public:
    explicit DepthGuard(unsigned int& depth) : _depth(depth) { ++_depth; }
    ~DepthGuard() { --_depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

    bool isTooDeep() const { return (_depth & 7) == 0 && !hasStackSpace(); }

private:
    unsigned int& _depth;
};

} // namespace

BinaryStream::BinaryStream() : _bytes(new Bytes())
{
    clear();
}

BinaryStream::~BinaryStream()
{
    delete _bytes;
}

void BinaryStream::acquireBytes()
{
    std::stringbuf& buffer = *_bytes->stream.rdbuf();
    _hasFailed = _bytes->stream.fail();
    _writeNext = BufferAreas::writeNext(buffer);
    _writeEnd = BufferAreas::writeEnd(buffer);
    _readNext = BufferAreas::readNext(buffer);
    // What was written last is not yet in the buffer's own read area.
    const char* written = std::max<const char*>(BufferAreas::readEnd(buffer), _writeNext);
    _readEnd = _hasFailed ? _readNext : written;
}

void BinaryStream::releaseBytes()
{
    if (_isImported)
        return putImportedIntoStream();
    if (_writeEnd == nullptr && _readEnd == nullptr)
        return;
    std::stringbuf& buffer = *_bytes->stream.rdbuf();
    BufferAreas::moveWriteNext(buffer, _writeNext - BufferAreas::writeNext(buffer));
    char* const readEnd = std::max(BufferAreas::readEnd(buffer), BufferAreas::writeNext(buffer));
    BufferAreas::setRead(buffer, const_cast<char*>(_readNext), readEnd);
    _writeNext = _writeEnd = nullptr;
    _readNext = _readEnd = nullptr;
}

void BinaryStream::putImportedIntoStream()
{
    const size_t position = static_cast<size_t>(_readNext - _imported.begin());
    _isImported = false;
    _bytes->stream.str(std::string(_imported.begin(), _imported.size()));
    _bytes->stream.seekg(static_cast<std::streamoff>(position));
    _imported = PODArray<char>();
    _readNext = _readEnd = nullptr;
}

std::stringstream& BinaryStream::getStream()
{
    releaseBytes();
    return _bytes->stream;
}

void BinaryStream::putBytesSlowly(const void* bytes, size_t count)
{
    releaseBytes();
    _bytes->stream.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(count));
    acquireBytes();
}

bool BinaryStream::hasBytes(size_t count)
{
    releaseBytes();
    acquireBytes();
    if (static_cast<size_t>(_readEnd - _readNext) >= count)
        return true;
    setFailed();
    return false;
}

void BinaryStream::setFailed()
{
    getStream().setstate(std::ios::failbit);
    acquireBytes();
}

bool BinaryStream::hasFailed()
{
    if (_readEnd == nullptr)
        acquireBytes();
    return _hasFailed;
}

size_t BinaryStream::getLength()
{
    const std::streamoff length = getStream().tellp();
    return length < 0 ? 0 : static_cast<size_t>(length);
}

size_t BinaryStream::getPosition()
{
    if (_isImported)
        return static_cast<size_t>(_readNext - _imported.begin());
    return static_cast<size_t>(static_cast<std::streamoff>(getStream().tellg()));
}

void BinaryStream::seekRead(size_t position)
{
    if (_isImported)
        _readNext = _imported.begin() + position;
    else
        getStream().seekg(static_cast<std::streamoff>(position));
}

bool BinaryStream::exportTo(const char* fileName)
{
    std::stringstream& stream = getStream();
    const std::string bytes = stream.str();
    SafeFileWriter writer(fileName);
    return !stream.fail() && writer.write(bytes.data(), bytes.size()) && writer.commit();
}

void BinaryStream::importFrom(const char* fileName)
{
    MRV_ASSERT(FileDir::exist(fileName));
    std::ifstream file(fileName, std::ios::in | std::ios::binary);
    PODArray<char> bytes;
    char block[65536];
    while (file.read(block, sizeof(block)) || file.gcount() > 0)
        bytes.insert(bytes.end(), block, block + file.gcount());
    importFrom(std::move(bytes));
}

void BinaryStream::importFrom(const uint8_t* buffer, size_t size)
{
    MRV_ASSERT(buffer != NULL);
    PODArray<char> bytes;
    bytes.assign(size, reinterpret_cast<const char*>(buffer));
    importFrom(std::move(bytes));
}

void BinaryStream::importFrom(PODArray<char>&& bytes)
{
    _isImported = false; // what was imported before is not asked for any more
    getStream().clear();
    getStream().str(std::string());
    _imported = std::move(bytes);
    if (_imported.empty())
        return;
    _isImported = true;
    _hasFailed = false;
    _readNext = _imported.begin();
    _readEnd = _imported.end();
}

void BinaryStream::setFirstPass(bool firstPass)
{
    if (firstPass && !_firstPass)
    {
        if (hasFailed())
            _readIdentities.setDamaged();
        _readIdentities.finish();
        _bodiesRead.clear();
    }
    _firstPass = firstPass;
    _nextBody = 0;
}

void BinaryStream::clear()
{
    _firstPass = true;
    getStream().clear();
    _writtenIdentities.clear();
    _readIdentities.clear();
    _bodiesRead.clear();
    _nextBody = 0;
}

void BinaryStream::write(const char* bytes, unsigned int count)
{
    if (count != 0)
        putBytes(bytes, count);
}

void BinaryStream::read(char* bytes, unsigned int count)
{
    if (count != 0)
        takeBytes(bytes, count);
}

void BinaryStream::write(const MrvString& value)
{
    if (_firstPass)
        return;
    const unsigned int length = static_cast<unsigned int>(value.size());
    write(length);
    write(value.c_str(), length);
}

void BinaryStream::write(const Uuid& value)
{
    if (!_firstPass)
        putBytes(&value, sizeof(value));
}

void BinaryStream::write(const Vector2& value)
{
    write(value.x);
    write(value.y);
}

void BinaryStream::write(const Vector3& value)
{
    write(value.x);
    write(value.y);
    write(value.z);
}

void BinaryStream::write(const Vector4& value)
{
    write(value.x);
    write(value.y);
    write(value.z);
    write(value.w);
}

void BinaryStream::write(const Quaternion& value)
{
    write(value.x);
    write(value.y);
    write(value.z);
    write(value.w);
}

void BinaryStream::read(bool& value)
{
    unsigned char byte = value;
    read(byte);
    value = byte != 0;
}

void BinaryStream::read(MrvString& value)
{
    unsigned int length = 0;
    if (!takeBytes(&length, sizeof(length)))
        return;
    if (static_cast<size_t>(_readEnd - _readNext) < length && !hasBytes(length))
    {
        value.clear();
        return;
    }
    if (length >= value.capacity())
    {
        MrvString exact(_readNext, length); // assign() would leave spare room
        exact.getData().setMemoryStatId(value.getData().getMemoryStatId());
        value.swap(exact);
    }
    else
        value.assign(_readNext, length);
    _readNext += length;
}

void BinaryStream::read(Uuid& value)
{
    takeBytes(&value, sizeof(value));
}

void BinaryStream::read(Vector2& value)
{
    read(value.x);
    read(value.y);
}

void BinaryStream::read(Vector3& value)
{
    read(value.x);
    read(value.y);
    read(value.z);
}

void BinaryStream::read(Vector4& value)
{
    read(value.x);
    read(value.y);
    read(value.z);
    read(value.w);
}

void BinaryStream::read(Quaternion& value)
{
    read(value.x);
    read(value.y);
    read(value.z);
    read(value.w);
}

// A claim: nothing is allocated for elements that the rest of the buffer cannot hold.
unsigned int BinaryStream::readCount(size_t minimumElementSize)
{
    unsigned int count = 0;
    if (!takeBytes(&count, sizeof(count)) || count == 0)
        return 0;
    const size_t needed = count * minimumElementSize;
    if (static_cast<size_t>(_readEnd - _readNext) < needed && !hasBytes(needed))
        return 0;
    return count;
}

// An object in memory takes many times the bytes of its id and its attribute count.
bool BinaryStream::hasBytesForObjects(size_t count, const RTTI& rtti)
{
    constexpr size_t fewObjects = 1000;
    if (count <= fewObjects)
        return true;
    size_t size = internal::minimumObjectSize;
    const AttributeIndex& attributes = rtti.getAttributeIndex();
    for (unsigned int i = 0; i < attributes.getCount(); ++i)
        size += attributes.get(i)->getMinimumBinarySize();
    return count * size <= static_cast<size_t>(_readEnd - _readNext) || hasBytes(count * size);
}

void BinaryStream::writeObject(const void* object, const RTTI& rtti, bool isByValue)
{
    if (isByValue)
        _writtenIdentities.takePending(object, rtti);
    if (_firstPass)
    {
        _writtenIdentities.add(object);
    }
    else
    {
        write(_writtenIdentities.getId(object));
        write(rtti.getAttributesCount());
    }
    packAttributes(object, rtti);
}

void BinaryStream::packAttributes(const void* object, const RTTI& rtti)
{
    const DepthGuard guard(_depth);
    if (guard.isTooDeep())
    {
        MRV_LOG_LIMITED(SDK, LOG_ERROR,
                        "The objects of type " << rtti.getTypeName()
                                               << " are chained too deeply to be written");
        return setFailed();
    }
    const AttributeIndex& attributes = rtti.getAttributeIndex();
    for (unsigned int i = 0; i < attributes.getCount(); ++i)
        attributes.get(i)->pack(*this, object);
}

void BinaryStream::readObject(void* object, const RTTI& rtti, unsigned int knownId)
{
    unsigned int id = 0;
    unsigned int attributesCount = 0;
    read(id);
    if (!takeBytes(&attributesCount, sizeof(attributesCount)))
        return;
    if (_firstPass && id != knownId)
        _readIdentities.addValue(id, object, rtti);
    const AttributeIndex& attributes = rtti.getAttributeIndex();
    MRV_ASSERT(rtti.getAttributesCount() == attributesCount,
               "the Inspectable object of type : %s passed as an argument to BinaryStream::read has a "
               "different attributes count, %lu, than the one being read from the stream, %lu",
               rtti.getTypeName(), static_cast<unsigned long>(attributes.getCount()),
               static_cast<unsigned long>(attributesCount));
    const DepthGuard guard(_depth);
    if (guard.isTooDeep())
    {
        MRV_LOG_LIMITED(SDK, LOG_ERROR,
                        "The stored objects of type " << rtti.getTypeName()
                                                      << " are nested too deeply to be read");
        return setFailed();
    }
    for (unsigned int i = 0; i < attributesCount; ++i)
        attributes.get(i)->unpack(*this, object);
}

void BinaryStream::writePointer(const void* object, const RTTI& rtti)
{
    if (_firstPass)
    {
        if (object == nullptr || !_writtenIdentities.add(object))
            return;
        _writtenIdentities.setPending(object, rtti);
        return packAttributes(object, rtti);
    }
    write(_writtenIdentities.getId(object));
    if (object == nullptr)
        return;
    write(rtti.getTypeID());
    const bool isBodyNext = _writtenIdentities.takePending(object, rtti);
    write(isBodyNext);
    if (isBodyNext)
        writeObject(object, rtti, false);
}

void BinaryStream::readPointer(void*& pointer, const RTTI& declared)
{
    unsigned int id = 0;
    if (!takeBytes(&id, sizeof(id)))
        return;
    if (id == 0)
    {
        pointer = nullptr;
        return;
    }
    char classAndBody[sizeof(TypeID) + 1];
    if (!takeBytes(classAndBody, sizeof(classAndBody)))
        return;
    TypeID typeID;
    std::memcpy(&typeID, classAndBody, sizeof(typeID));
    bool isBodyNext = classAndBody[sizeof(TypeID)] != 0;
    const RTTI* rtti = nullptr;
    uint32_t number = 0; // of an instance that is made
    if (!_firstPass)
    {
        const internal::ReadIdentities::Found found = _readIdentities.find(id, declared);
        pointer = found.object;
        rtti = found.type;
    }
    else if (!_readIdentities.contains(id))
    {
        rtti = typeID == declared.getTypeID() ? &declared : RTTI::getRTTI(typeID);
        const bool isFitting = rtti != nullptr && rtti->isDerivedFrom(declared);
        pointer = isFitting ? rtti->createInstance() : nullptr;
        if (pointer != nullptr)
            number = _readIdentities.addCreated(id, pointer, rtti);
        else
            MRV_LOG(SDK, LOG_WARNING, typeID.getString() << " is not a registered inspectable type");
    }
    else
    {
        isBodyNext = false; // the address comes in the second pass
    }
    const bool isBodyRead = isBodyNext && pointer != nullptr;
    if (!agreeOnBody(isBodyRead) || !isBodyRead)
        return;
    const uint32_t container = _readIdentities.enterCreated(number);
    readObject(pointer, *rtti, id);
    _readIdentities.leaveCreated(container);
}

void BinaryStream::writePlainPointer(const void* value, const RTTI& type, bool& isValueNext)
{
    if (_firstPass)
    {
        if (value != nullptr && _writtenIdentities.add(value))
            _writtenIdentities.setPending(value, type);
        return;
    }
    write(_writtenIdentities.getId(value));
    if (value == nullptr)
        return;
    isValueNext = _writtenIdentities.takePending(value, type);
    write(isValueNext);
}

void BinaryStream::readPlainPointer(void*& pointer, const RTTI& type, void* (*create)(), bool& isValueNext)
{
    unsigned int id = 0;
    if (!takeBytes(&id, sizeof(id)))
        return;
    if (id == 0)
    {
        pointer = nullptr;
        return;
    }
    bool isNext = false;
    read(isNext);
    if (hasFailed())
        return;
    if (!_firstPass)
    {
        pointer = _readIdentities.find(id, type).object;
    }
    else if (!_readIdentities.contains(id))
    {
        pointer = create();
        _readIdentities.addCreated(id, pointer, &type);
    }
    else
    {
        isNext = false;
    }
    isValueNext = isNext && pointer != nullptr;
    if (!agreeOnBody(isValueNext))
        isValueNext = false;
}

bool BinaryStream::agreeOnBody(bool isBodyRead)
{
    if (_firstPass)
        _bodiesRead.push_back(isBodyRead);
    else if (_nextBody < _bodiesRead.size() && _bodiesRead[_nextBody] == isBodyRead)
        ++_nextBody;
    else
    {
        setFailed();
        return false;
    }
    return true;
}

} // namespace mrv
