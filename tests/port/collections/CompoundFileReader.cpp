#include "CompoundFileReader.h"

#include <cstring>
#include <stdexcept>

namespace {
constexpr std::uint32_t kNoStream = 0xFFFFFFFF;
constexpr std::uint32_t kLastSector = 0xFFFFFFF0; // and above: end of chain, free, FAT marks
constexpr std::uint8_t kSignature[8] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};

void Require(bool ok, const char* what) {
    if (!ok)
        throw std::runtime_error(what);
}
} // namespace

CompoundFileReader::CompoundFileReader(std::vector<std::uint8_t> file) : m_file(std::move(file)) {
    Require(m_file.size() >= 512 && std::memcmp(m_file.data(), kSignature, 8) == 0,
            "not a compound file");
    const unsigned sectorShift = m_file[0x1E] | (m_file[0x1F] << 8);
    const unsigned miniShift = m_file[0x20] | (m_file[0x21] << 8);
    Require(sectorShift == 9 || sectorShift == 12, "bad sector size");
    Require(miniShift == 6, "bad mini sector size");
    m_sectorSize = std::size_t{1} << sectorShift;
    m_miniSectorSize = std::size_t{1} << miniShift;
    m_miniCutoff = U32(0x38);
    Require(U32(0x48) == 0, "files with a DIFAT chain are not needed here");

    // The FAT sectors are listed in the header's 109 DIFAT slots.
    const std::uint32_t fatSectors = U32(0x2C);
    Require(fatSectors <= 109, "too many FAT sectors");
    for (std::uint32_t i = 0; i < fatSectors; ++i) {
        const std::uint8_t* sector = Sector(U32(0x4C + 4 * i));
        for (std::size_t k = 0; k < m_sectorSize / 4; ++k)
            m_fat.push_back(U32(static_cast<std::size_t>(sector - m_file.data()) + 4 * k));
    }

    const std::vector<std::uint8_t> directory = ReadChain(U32(0x30));
    for (std::size_t at = 0; at + 128 <= directory.size(); at += 128) {
        const std::uint8_t* raw = directory.data() + at;
        Entry entry;
        const unsigned nameBytes = raw[0x40] | (raw[0x41] << 8);
        Require(nameBytes <= 64 && nameBytes % 2 == 0, "bad directory name");
        for (unsigned i = 0; i + 2 < nameBytes; i += 2)
            entry.name += static_cast<char16_t>(raw[i] | (raw[i + 1] << 8));
        entry.type = raw[0x42];
        auto field = [&](std::size_t offset) {
            std::uint32_t v;
            std::memcpy(&v, raw + offset, 4);
            return v;
        };
        entry.left = field(0x44);
        entry.right = field(0x48);
        entry.child = field(0x4C);
        entry.start = field(0x74);
        entry.size = field(0x78); // version 3: the high half is not used
        m_entries.push_back(entry);
    }
    Require(!m_entries.empty() && m_entries[0].type == 5, "no root entry");

    const std::vector<std::uint8_t> miniFat = ReadChain(U32(0x3C));
    for (std::size_t at = 0; at + 4 <= miniFat.size(); at += 4) {
        std::uint32_t v;
        std::memcpy(&v, miniFat.data() + at, 4);
        m_miniFat.push_back(v);
    }
    m_miniStream = ReadChain(m_entries[0].start);
    Require(m_miniStream.size() >= m_entries[0].size, "mini stream cut short");
}

std::uint32_t CompoundFileReader::U32(std::size_t offset) const {
    Require(offset + 4 <= m_file.size(), "read past the end");
    std::uint32_t v;
    std::memcpy(&v, m_file.data() + offset, 4);
    return v;
}

const std::uint8_t* CompoundFileReader::Sector(std::uint32_t sector) const {
    const std::size_t offset = (std::size_t{sector} + 1) * m_sectorSize;
    Require(sector < kLastSector && offset + m_sectorSize <= m_file.size(), "bad sector");
    return m_file.data() + offset;
}

std::vector<std::uint32_t> CompoundFileReader::Chain(const std::vector<std::uint32_t>& table,
                                                     std::uint32_t start) const {
    std::vector<std::uint32_t> chain;
    for (std::uint32_t at = start; at < kLastSector; at = table[at]) {
        Require(at < table.size() && chain.size() < table.size(), "bad or looping chain");
        chain.push_back(at);
    }
    return chain;
}

std::vector<std::uint8_t> CompoundFileReader::ReadChain(std::uint32_t start) const {
    std::vector<std::uint8_t> out;
    for (std::uint32_t sector : Chain(m_fat, start)) {
        const std::uint8_t* data = Sector(sector);
        out.insert(out.end(), data, data + m_sectorSize);
    }
    return out;
}

std::vector<std::uint8_t> CompoundFileReader::ReadRootStream(const std::u16string& name) const {
    // The root's children form a tree through the left and right links of its child entry.
    std::vector<std::uint32_t> pending{m_entries[0].child};
    std::size_t visited = 0;
    while (!pending.empty()) {
        const std::uint32_t index = pending.back();
        pending.pop_back();
        if (index == kNoStream)
            continue;
        Require(index < m_entries.size() && ++visited <= m_entries.size(), "bad directory tree");
        const Entry& entry = m_entries[index];
        if (entry.type == 2 && entry.name == name) {
            std::vector<std::uint8_t> data;
            if (entry.size < m_miniCutoff) {
                for (std::uint32_t mini : Chain(m_miniFat, entry.start)) {
                    const std::size_t offset = std::size_t{mini} * m_miniSectorSize;
                    Require(offset + m_miniSectorSize <= m_miniStream.size(), "bad mini sector");
                    data.insert(data.end(), m_miniStream.begin() + static_cast<long>(offset),
                                m_miniStream.begin() +
                                    static_cast<long>(offset + m_miniSectorSize));
                }
            } else {
                data = ReadChain(entry.start);
            }
            Require(data.size() >= entry.size, "stream cut short");
            data.resize(static_cast<std::size_t>(entry.size));
            return data;
        }
        pending.push_back(entry.left);
        pending.push_back(entry.right);
    }
    throw std::runtime_error("no such stream");
}
