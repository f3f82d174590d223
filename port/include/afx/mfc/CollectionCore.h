// What the template collections share: POSITION, the node pool behind lists and maps, and the
// element helpers that MFC lets a program specialise (CompareElements, SerializeElements,
// HashKey).
#pragma once

#include "port/Export.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include "mfc/CArchive.h"
#include "mfc/CException.h"
#include "mfc/CString.h"
#include "win/types.h"

// An opaque place in a list or map; null means "none".
struct ORV_API __POSITION {};
using POSITION = __POSITION*;

// A map's "before the first association" place.
#define BEFORE_START_POSITION (reinterpret_cast<POSITION>(static_cast<std::intptr_t>(-1)))

namespace port {

// Nodes live in chunks that never move: the first holds nBlockSize nodes and each further chunk
// doubles the room, so that an empty collection allocates nothing and a reference to an element
// stays valid while others come and go. A POSITION is a node index (plus one) rather than an
// address: a stale, foreign or made-up POSITION is caught as an invalid argument instead of being
// followed.
template <typename Node> class NodePool {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    // A block size below 1 is an invalid argument.
    explicit NodePool(INT_PTR nBlockSize) {
        if (nBlockSize <= 0)
            AfxThrowInvalidArgException();
        m_blockSize = std::min<std::size_t>(static_cast<std::size_t>(nBlockSize), kMaxBlockSize);
    }

    static POSITION ToPosition(std::size_t index) noexcept {
        return index == npos ? nullptr : reinterpret_cast<POSITION>(index + 1);
    }

    // The node a POSITION names; throws CInvalidArgException unless it is one of ours in use.
    std::size_t Check(POSITION pos) const {
        const auto raw = reinterpret_cast<std::uintptr_t>(pos);
        if (raw == 0 || raw > m_used || SlotAt(raw - 1).nextFree != kInUse)
            AfxThrowInvalidArgException();
        return raw - 1;
    }

    std::size_t Allocate() {
        std::size_t index = m_freeHead;
        if (index != npos) {
            m_freeHead = SlotAt(index).nextFree;
        } else {
            index = m_used;
            const std::size_t chunk = ChunkOf(index);
            if (chunk == m_chunks.size())
                m_chunks.push_back(std::make_unique<Slot[]>(ChunkSize(chunk)));
            ++m_used;
        }
        SlotAt(index).nextFree = kInUse;
        return index;
    }

    // The node's value is reset at once so that what it held is released now.
    void Release(std::size_t index) {
        Slot& slot = SlotAt(index);
        slot.node = Node();
        slot.nextFree = m_freeHead;
        m_freeHead = index;
    }

    void Clear() noexcept {
        m_chunks.clear();
        m_used = 0;
        m_freeHead = npos;
    }

    Node& operator[](std::size_t index) noexcept { return SlotAt(index).node; }
    const Node& operator[](std::size_t index) const noexcept { return SlotAt(index).node; }

private:
    static constexpr std::size_t kInUse = npos - 1;
    static constexpr std::size_t kMaxBlockSize = std::size_t{1} << 16;

    struct Slot {
        Node node{};
        std::size_t nextFree = npos; // the next free slot, or kInUse
    };

    // Chunk 0 holds indexes [0, B), chunk c >= 1 holds [B * 2^(c-1), B * 2^c).
    std::size_t ChunkOf(std::size_t index) const noexcept {
        return static_cast<std::size_t>(std::bit_width(index / m_blockSize));
    }
    std::size_t ChunkStart(std::size_t chunk) const noexcept {
        return chunk == 0 ? 0 : m_blockSize << (chunk - 1);
    }
    std::size_t ChunkSize(std::size_t chunk) const noexcept {
        return chunk == 0 ? m_blockSize : m_blockSize << (chunk - 1);
    }
    Slot& SlotAt(std::size_t index) noexcept {
        const std::size_t chunk = ChunkOf(index);
        return m_chunks[chunk][index - ChunkStart(chunk)];
    }
    const Slot& SlotAt(std::size_t index) const noexcept {
        const std::size_t chunk = ChunkOf(index);
        return m_chunks[chunk][index - ChunkStart(chunk)];
    }

    std::vector<std::unique_ptr<Slot[]>> m_chunks;
    std::size_t m_used = 0; // indexes handed out so far, free or not
    std::size_t m_freeHead = npos;
    std::size_t m_blockSize = 10;
};

template <typename T> inline constexpr bool IsArchiveString = false;
template <typename T> inline constexpr bool IsArchiveString<CStringT<T>> = true;

} // namespace port

// Equality of a stored element and a searched value, for Find and Lookup.
template <class TYPE, class ARG_TYPE>
BOOL CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2) {
    return *pElement1 == *pElement2;
}

// Stores or loads nCount elements. Plain types travel as their raw bytes; strings (and other
// class types) one element at a time through the archive's operators. Specialise it for a type
// that needs its own form.
template <class TYPE> void SerializeElements(CArchive& ar, TYPE* pElements, INT_PTR nCount) {
    if (nCount < 0 || (nCount > 0 && !pElements))
        AfxThrowInvalidArgException();
    if constexpr (std::is_trivially_copyable_v<TYPE> && !std::is_same_v<TYPE, bool> &&
                  !port::IsArchiveString<TYPE>) {
        auto* bytes = reinterpret_cast<BYTE*>(pElements);
        std::size_t left = static_cast<std::size_t>(nCount) * sizeof(TYPE);
        while (left > 0) {
            const UINT chunk = static_cast<UINT>(left < INT_MAX ? left : INT_MAX);
            if (ar.IsStoring())
                ar.Write(bytes, chunk);
            else if (ar.Read(bytes, chunk) != chunk)
                AfxThrowArchiveException(CArchiveException::endOfFile);
            bytes += chunk;
            left -= chunk;
        }
    } else {
        for (INT_PTR i = 0; i < nCount; ++i) {
            if (ar.IsStoring())
                ar << pElements[i];
            else
                ar >> pElements[i];
        }
    }
}

namespace port {

// MFC's hash of a 32-bit key: one step of the Park-Miller "minimal standard" generator
// (multiplier 16807, modulus 2^31 - 1, computed with Schrage's method).
inline UINT HashLong(LONG key) noexcept {
    const LONG quotient = key / 127773;
    LONG remainder = key % 127773;
    remainder = 16807 * remainder - 2836 * quotient;
    if (remainder < 0)
        remainder += 2147483647;
    return static_cast<UINT>(remainder);
}

// MFC's hash of a string: hash * 33 + character, from zero.
template <typename CharT> UINT HashText(const CharT* key) noexcept {
    UINT hash = 0;
    for (; key && *key; ++key)
        hash =
            (hash << 5) + hash + static_cast<UINT>(static_cast<std::make_unsigned_t<CharT>>(*key));
    return hash;
}

} // namespace port

// The bucket hash of CMap. Integers and pointers hash by their low 32 bits (a 64-bit integer by
// both halves), strings by their characters. Specialise it for a key type of your own.
template <class ARG_KEY> UINT HashKey(ARG_KEY key) {
    using Key = std::remove_cvref_t<ARG_KEY>;
    if constexpr (port::IsArchiveString<Key>) {
        return port::HashText(key.GetString());
    } else if constexpr (std::is_same_v<Key, const wchar_t*> || std::is_same_v<Key, wchar_t*> ||
                         std::is_same_v<Key, const char*> || std::is_same_v<Key, char*>) {
        return port::HashText(key);
    } else if constexpr (std::is_pointer_v<Key>) {
        return port::HashLong(static_cast<LONG>(reinterpret_cast<std::uintptr_t>(key)));
    } else if constexpr ((std::is_integral_v<Key> || std::is_enum_v<Key>)&&sizeof(Key) == 8) {
        const auto bits = static_cast<std::uint64_t>(key);
        return port::HashLong(static_cast<LONG>(bits & 0xFFFFFFFFu)) ^
               port::HashLong(static_cast<LONG>(bits >> 32));
    } else {
        return port::HashLong(static_cast<LONG>(key));
    }
}
