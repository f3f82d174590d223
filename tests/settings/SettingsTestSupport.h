// Archive round trips through memory for the settings tests.
#pragma once

#include <cstdint>
#include <vector>

#include "mfc/CArchive.h"
#include "mfc/CMemFile.h"

// What `write` stores into a fresh archive.
template <class Write> std::vector<std::uint8_t> StoreBytes(Write write) {
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        write(ar);
        ar.Close();
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(file.GetLength()));
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

// Runs `read` on an archive over `bytes`; answers the number of bytes left unread.
template <class Read> std::size_t LoadBytes(std::vector<std::uint8_t> bytes, Read read) {
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    read(ar);
    std::uint8_t rest[64];
    const std::size_t left = ar.Read(rest, sizeof rest);
    ar.Close();
    return left;
}
