// mrvCore/system/dataItem/mrvAbstractDataFileParser.h
// What reads and writes data item trees as files.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/utils/mrvFileName.h"

namespace mrv {

class DataItem;

/// How writing a file of data items ended.
struct SaveXMLDataFileErrorCode
{
    enum Value { SUCCESS, FILE_CREATION_FAILED, END };
};

/// A form of files for data item trees. One thread at a time per object.
class MRV_CORE_API AbstractDataFileParser
{
public:
    AbstractDataFileParser() = default;
    /// Probes whether the file can be read and logs an error if not. Reads nothing: the item is not touched,
    /// and neither is the name of the file last read.
    AbstractDataFileParser(const char* fileName, DataItem& item);
    virtual ~AbstractDataFileParser() = default;

    /// Fills the item from a file. Failure is fatal.
    virtual void read(const char* fileName, DataItem& item) = 0;
    /// Writes the item into a file, in place of a former one.
    virtual SaveXMLDataFileErrorCode::Value write(const char* fileName, DataItem& item) = 0;

    /// The file last read; what a file includes lies beside it.
    const FileName& getFileName() const { return _fileName; }
    void setFileName(const FileName& fileName) { _fileName = fileName; }

protected:
    AbstractDataFileParser(const AbstractDataFileParser&) = default;
    AbstractDataFileParser& operator=(const AbstractDataFileParser&) = default;

    FileName _fileName;
};

} // namespace mrv
