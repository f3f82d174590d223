// Helpers of the collection tests: archives in memory, hand-written byte vectors and MFC's
// pointer exceptions.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include <afx.h>

namespace collections_test {

using Bytes = std::vector<BYTE>;

// Stores through store(ar) into memory and answers the bytes written.
inline Bytes Store(const std::function<void(CArchive&)>& store) {
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        store(ar);
        ar.Close();
    }
    Bytes bytes(static_cast<std::size_t>(file.GetLength()));
    file.SeekToBegin();
    if (!bytes.empty())
        file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

// Loads through load(ar) from bytes; answers how many bytes were left unread.
inline std::size_t Load(Bytes bytes, const std::function<void(CArchive&)>& load) {
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    load(ar);
    ar.Close();
    return static_cast<std::size_t>(file.GetLength() - file.GetPosition());
}

// Little-endian pieces for writing expected bytes by hand.
inline void Append(Bytes& out, std::initializer_list<int> bytes) {
    for (int b : bytes)
        out.push_back(static_cast<BYTE>(b));
}
inline void Word(Bytes& out, unsigned value) {
    Append(out, {int(value & 0xFF), int(value >> 8)});
}
inline void Dword(Bytes& out, std::uint32_t value) {
    Word(out, value & 0xFFFF);
    Word(out, value >> 16);
}
inline void Qword(Bytes& out, std::uint64_t value) {
    Dword(out, static_cast<std::uint32_t>(value));
    Dword(out, static_cast<std::uint32_t>(value >> 32));
}
// A new class description: 0xFFFF, schema, name length, name.
inline void NewClass(Bytes& out, unsigned schema, const std::string& name) {
    Word(out, 0xFFFF);
    Word(out, schema);
    Word(out, static_cast<unsigned>(name.size()));
    out.insert(out.end(), name.begin(), name.end());
}
// A short wide string (below 255 characters): Unicode mark, length byte, UTF-16 units.
inline void WideString(Bytes& out, const std::string& ascii) {
    Append(out, {0xFF, 0xFE, 0xFF, static_cast<int>(ascii.size())});
    for (char c : ascii)
        Word(out, static_cast<unsigned char>(c));
}

// Runs f and answers whether it threw an E* (which is released); any other CException* counts
// as a failure and is released too.
template <class E, class F> bool ThrowsMfc(F&& f) {
    try {
        f();
    } catch (E* e) {
        e->Delete();
        return true;
    } catch (CException* e) {
        e->Delete();
    }
    return false;
}

// The cause of the CArchiveException that f throws; -1 when it throws none.
template <class F> int ArchiveCause(F&& f) {
    try {
        f();
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    } catch (CException* e) {
        e->Delete();
        return -2;
    }
    return -1;
}

} // namespace collections_test
