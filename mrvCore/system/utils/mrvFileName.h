// mrvCore/system/utils/mrvFileName.h
// A path taken apart into folder, name and extension.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"

namespace mrv {

/// A path as folder, name and extension; texts only, the file system is not asked.
///
/// The folder has no trailing slash and is "." for a path without one. A slash at the very start does not
/// make a folder: "/a.b" is the name "/a" in the folder ".", and callers rely on the name keeping it.
/// The extension has no dot; a name with only a leading dot has none.
class MRV_CORE_API FileName
{
public:
    /// All three parts are empty, as after clear().
    FileName() = default;
    explicit FileName(const MrvString& path) { set(path); }
    FileName(const FileName&) = default;
    virtual ~FileName() = default;
    FileName& operator=(const FileName&) = default;
    FileName& operator=(const MrvString& path)
    {
        set(path);
        return *this;
    }

    /// Takes a path apart, after FileDir::correctPath.
    void set(const MrvString& path);
    void clear();

    /// Folder, slash and filename().
    MrvString fullname() const { return pathname(true) + filename(); }
    /// The same with another extension, whose dot is always written.
    MrvString fullname(const MrvString& extension) const { return pathname(true) + filename(extension); }
    /// The same without extension and dot.
    MrvString fullnameNoExt() const { return pathname(true) + m_filename; }

    /// Name and extension, without a dot if there is no extension.
    MrvString filename() const { return hasExtension() ? filename(m_extension) : m_filename; }
    MrvString filename(const MrvString& extension) const { return m_filename + '.' + extension; }
    /// The name alone.
    MrvString filenameNoExt() const { return m_filename; }

    /// The folder, "." for a path without one.
    MrvString pathname(bool withTrailingSlash = false) const
    {
        return withTrailingSlash ? m_filepath + '/' : m_filepath;
    }

    /// Without its dot; empty for a name without one.
    MrvString extension() const { return m_extension; }
    /// Replaces the stored extension; given without its dot.
    void extension(const MrvString& newExtension) { m_extension = newExtension; }

    /// True after set() of any path, since a path without a folder has ".".
    bool hasPath() const { return !m_filepath.empty(); }
    bool hasName() const { return !m_filename.empty(); }
    bool hasExtension() const { return !m_extension.empty(); }
    /// True if the path begins with a slash, which a path right below the root keeps in its name.
    bool isAbsolute() const { return m_filepath.find('/') == 0 || m_filename.find('/') == 0; }

private:
    MrvString m_filepath;
    MrvString m_filename;
    MrvString m_extension;
};

} // namespace mrv
