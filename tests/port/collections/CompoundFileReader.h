// A small reader of OLE compound files (header, FAT, directory, mini FAT and mini stream), enough
// to take a stream out of a document written by Windows. Damaged structures throw
// std::runtime_error.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CompoundFileReader {
public:
    explicit CompoundFileReader(std::vector<std::uint8_t> file);

    // The stream named name directly under the root storage (names compared exactly).
    std::vector<std::uint8_t> ReadRootStream(const std::u16string& name) const;

private:
    struct Entry {
        std::u16string name;
        std::uint8_t type = 0; // 1 storage, 2 stream, 5 root
        std::uint32_t left = 0, right = 0, child = 0, start = 0;
        std::uint64_t size = 0;
    };

    std::uint32_t U32(std::size_t offset) const;
    const std::uint8_t* Sector(std::uint32_t sector) const;
    std::vector<std::uint32_t> Chain(const std::vector<std::uint32_t>& table,
                                     std::uint32_t start) const;
    std::vector<std::uint8_t> ReadChain(std::uint32_t start) const;

    std::vector<std::uint8_t> m_file;
    std::size_t m_sectorSize = 512;
    std::size_t m_miniSectorSize = 64;
    std::uint32_t m_miniCutoff = 4096;
    std::vector<std::uint32_t> m_fat;
    std::vector<std::uint32_t> m_miniFat;
    std::vector<Entry> m_entries;
    std::vector<std::uint8_t> m_miniStream;
};
