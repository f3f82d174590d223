// Builds expected archive bytes by the rules of the MFC format, piece by piece, so that a test
// states a layout the way the format describes it.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

class ArchiveBytes {
public:
    ArchiveBytes& Byte(std::uint8_t value) {
        m_bytes.push_back(value);
        return *this;
    }
    ArchiveBytes& Word(std::uint16_t value) { return Byte(value & 0xFF).Byte(value >> 8); }
    ArchiveBytes& Dword(std::uint32_t value) { return Word(value & 0xFFFF).Word(value >> 16); }
    ArchiveBytes& Qword(std::uint64_t value) {
        return Dword(static_cast<std::uint32_t>(value))
            .Dword(static_cast<std::uint32_t>(value >> 32));
    }
    ArchiveBytes& Int(std::int32_t value) { return Dword(static_cast<std::uint32_t>(value)); }
    ArchiveBytes& Double(double value) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, 8);
        return Qword(bits);
    }
    // A new class: the new-class tag, the schema, the name length and the 8-bit name.
    ArchiveBytes& NewClass(const std::string& name, std::uint16_t schema) {
        Word(0xFFFF).Word(schema).Word(static_cast<std::uint16_t>(name.size()));
        for (char c : name)
            Byte(static_cast<std::uint8_t>(c));
        return *this;
    }
    // A class seen before, by its index.
    ArchiveBytes& ClassRef(std::uint16_t index) { return Word(0x8000 | index); }
    // An object seen before, by its index.
    ArchiveBytes& ObjectRef(std::uint16_t index) { return Word(index); }
    // A short wide string: the Unicode mark, a byte length, UTF-16 units.
    ArchiveBytes& String(const std::wstring& text) {
        Byte(0xFF).Word(0xFFFE).Byte(static_cast<std::uint8_t>(text.size()));
        for (wchar_t c : text)
            Word(static_cast<std::uint16_t>(c));
        return *this;
    }
    ArchiveBytes& Count(std::uint16_t count) { return Word(count); }
    ArchiveBytes& Append(const ArchiveBytes& more) {
        m_bytes.insert(m_bytes.end(), more.m_bytes.begin(), more.m_bytes.end());
        return *this;
    }

    const std::vector<std::uint8_t>& bytes() const { return m_bytes; }

private:
    std::vector<std::uint8_t> m_bytes;
};
