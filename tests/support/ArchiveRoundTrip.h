// Archives through memory: what a store writes, a load over given bytes, and the fault a load ends
// in. Expected bytes are written by hand, in hex or with ArchiveBytes.
#pragma once

#include <afx.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

using Bytes = std::vector<BYTE>;

// What `write` stores into a fresh archive.
Bytes StoreBytes(const std::function<void(CArchive&)>& write);

// Runs `read` on an archive over `bytes`; answers the number of bytes left unread.
std::size_t LoadBytes(const Bytes& bytes, const std::function<void(CArchive&)>& read);

// The cause of the CArchiveException that `run` throws: -1 when it throws none, -2 for another
// CException. Exceptions are released.
int ArchiveCause(const std::function<void()>& run);

// ArchiveCause of a load of `bytes` through `read`.
int LoadCause(const Bytes& bytes, const std::function<void(CArchive&)>& read);

// Whether `run` throws an E* (released); any other CException* is released and counts as no.
template <class E, class F> bool ThrowsMfc(F&& run) {
    try {
        run();
    } catch (E* e) {
        e->Delete();
        return true;
    } catch (CException* e) {
        e->Delete();
    }
    return false;
}

// "FF FE 00" -> bytes; spaces and line breaks are ignored.
Bytes Hex(const std::string& text);
