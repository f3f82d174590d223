// CMap: MFC's hash map from keys to values, with a fixed number of buckets (17 unless
// InitHashTable says otherwise). CMapPtrToPtr and CMapStringToPtr share its logic.
#pragma once

#include <algorithm>
#include <vector>

#include "mfc/CArchive.h"
#include "mfc/CObject.h"
#include "mfc/CollectionCore.h"

namespace port {

// The map logic; Hasher::Hash(key) chooses the bucket. Associations are walked bucket by bucket,
// the newest first within a bucket, which is also the order they are archived in.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE, class Hasher>
class HashMap : public CObject {
public:
    explicit HashMap(INT_PTR nBlockSize = 10) : m_assocs(nBlockSize) {}
    ~HashMap() override = default;

    INT_PTR GetCount() const noexcept { return m_nCount; }
    INT_PTR GetSize() const noexcept { return m_nCount; }
    BOOL IsEmpty() const noexcept { return m_nCount == 0; }
    UINT GetHashTableSize() const noexcept { return m_nHashTableSize; }

    BOOL Lookup(ARG_KEY key, VALUE& rValue) const {
        const std::size_t index = Locate(key, Hasher::Hash(key));
        if (index == npos)
            return FALSE;
        rValue = m_assocs[index].value;
        return TRUE;
    }
    // The value for key, added (value-initialised) when the key is new.
    VALUE& operator[](ARG_KEY key) {
        const UINT hash = Hasher::Hash(key);
        std::size_t index = Locate(key, hash);
        if (index == npos) {
            KEY copy(key);
            if (m_buckets.empty())
                m_buckets.assign(m_nHashTableSize, npos);
            index = m_assocs.Allocate();
            Assoc& assoc = m_assocs[index];
            assoc.key = std::move(copy);
            assoc.hash = hash;
            std::size_t& head = m_buckets[hash % m_nHashTableSize];
            assoc.next = head;
            head = index;
            ++m_nCount;
        }
        return m_assocs[index].value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
    BOOL RemoveKey(ARG_KEY key) {
        if (m_buckets.empty())
            return FALSE;
        const UINT hash = Hasher::Hash(key);
        for (std::size_t* link = &m_buckets[hash % m_nHashTableSize]; *link != npos;
             link = &m_assocs[*link].next) {
            const std::size_t index = *link;
            if (CompareElements<KEY>(&m_assocs[index].key, &key)) {
                *link = m_assocs[index].next;
                m_assocs.Release(index);
                --m_nCount;
                return TRUE;
            }
        }
        return FALSE;
    }
    void RemoveAll() noexcept {
        m_assocs.Clear();
        m_buckets.clear();
        m_nCount = 0;
    }

    // Null for an empty map, else BEFORE_START_POSITION.
    POSITION GetStartPosition() const noexcept {
        return m_nCount == 0 ? nullptr : BEFORE_START_POSITION;
    }
    // Answers the association at rNextPosition and moves it on (null after the last).
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const {
        std::size_t index;
        if (rNextPosition == BEFORE_START_POSITION) {
            index = FirstFrom(0);
            if (index == npos)
                AfxThrowInvalidArgException();
        } else {
            index = m_assocs.Check(rNextPosition);
        }
        const Assoc& assoc = m_assocs[index];
        rKey = assoc.key;
        rValue = assoc.value;
        const std::size_t next =
            assoc.next != npos ? assoc.next : FirstFrom(assoc.hash % m_nHashTableSize + 1);
        rNextPosition = Pool::ToPosition(next);
    }

    // Sets the number of buckets; only while the map is empty.
    void InitHashTable(UINT nHashSize, BOOL bAllocNow = TRUE) {
        if (m_nCount != 0 || nHashSize == 0)
            AfxThrowInvalidArgException();
        m_nHashTableSize = nHashSize;
        m_buckets.clear();
        if (bAllocNow)
            m_buckets.assign(nHashSize, npos);
    }

    // The count, then key and value of each association through SerializeElements. Loading adds
    // to what the map holds.
    void Serialize(CArchive& ar) override {
        CObject::Serialize(ar);
        if (ar.IsStoring()) {
            ar.WriteCount(static_cast<DWORD_PTR>(m_nCount));
            for (std::size_t head : m_buckets)
                for (std::size_t index = head; index != npos; index = m_assocs[index].next) {
                    SerializeElements<KEY>(ar, &m_assocs[index].key, 1);
                    SerializeElements<VALUE>(ar, &m_assocs[index].value, 1);
                }
            return;
        }
        for (DWORD_PTR left = ar.ReadCount(); left > 0; --left) {
            KEY newKey[1] = {};
            VALUE newValue[1] = {};
            SerializeElements<KEY>(ar, newKey, 1);
            SerializeElements<VALUE>(ar, newValue, 1);
            (*this)[newKey[0]] = newValue[0];
        }
    }

private:
    struct Assoc {
        KEY key{};
        VALUE value{};
        UINT hash = 0;
        std::size_t next = static_cast<std::size_t>(-1);
    };
    using Pool = NodePool<Assoc>;
    static constexpr std::size_t npos = Pool::npos;

    std::size_t Locate(ARG_KEY key, UINT hash) const {
        if (m_buckets.empty())
            return npos;
        for (std::size_t index = m_buckets[hash % m_nHashTableSize]; index != npos;
             index = m_assocs[index].next)
            if (CompareElements<KEY>(&m_assocs[index].key, &key))
                return index;
        return npos;
    }
    // The head of the first non-empty bucket from bucket onwards.
    std::size_t FirstFrom(std::size_t bucket) const noexcept {
        for (; bucket < m_buckets.size(); ++bucket)
            if (m_buckets[bucket] != npos)
                return m_buckets[bucket];
        return npos;
    }

    Pool m_assocs;
    std::vector<std::size_t> m_buckets; // empty until the first association
    UINT m_nHashTableSize = 17;
    INT_PTR m_nCount = 0;
};

template <class ARG_KEY> struct TemplateHash {
    static UINT Hash(ARG_KEY key) { return HashKey<ARG_KEY>(key); }
};

} // namespace port

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public port::HashMap<KEY, ARG_KEY, VALUE, ARG_VALUE, port::TemplateHash<ARG_KEY>> {
public:
    using port::HashMap<KEY, ARG_KEY, VALUE, ARG_VALUE, port::TemplateHash<ARG_KEY>>::HashMap;
};
