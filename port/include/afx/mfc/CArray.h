// CArray: MFC's growable array of values, indexed from zero. The array classes CObArray,
// CPtrArray and CStringArray are instances of it.
#pragma once

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

#include "mfc/CArchive.h"
#include "mfc/CObject.h"
#include "mfc/CollectionCore.h"

template <class TYPE, class ARG_TYPE = const TYPE&> class CArray : public CObject {
    static_assert(!std::is_same_v<TYPE, bool>, "CArray<bool> is not supported: use BYTE or BOOL");

public:
    CArray() = default;
    ~CArray() override = default;

    INT_PTR GetSize() const noexcept { return Size(); }
    INT_PTR GetCount() const noexcept { return Size(); }
    BOOL IsEmpty() const noexcept { return m_data.empty(); }
    INT_PTR GetUpperBound() const noexcept { return Size() - 1; }

    // New elements are value-initialised (zero for plain types). nGrowBy is the least number of
    // elements added when the storage grows; -1 keeps the current setting, 0 picks one from the
    // size.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) {
        if (nNewSize < 0)
            AfxThrowInvalidArgException();
        if (nGrowBy >= 0)
            m_nGrowBy = nGrowBy;
        Reserve(nNewSize);
        m_data.resize(static_cast<std::size_t>(nNewSize));
    }
    void FreeExtra() { m_data.shrink_to_fit(); }
    void RemoveAll() noexcept { m_data.clear(); }

    // An index outside 0..GetUpperBound() is an invalid argument.
    const TYPE& GetAt(INT_PTR nIndex) const { return m_data[Checked(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_data[Checked(nIndex)]; }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_data[Checked(nIndex)] = newElement; }
    const TYPE& ElementAt(INT_PTR nIndex) const { return GetAt(nIndex); }
    TYPE& ElementAt(INT_PTR nIndex) { return GetAt(nIndex); }
    const TYPE& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
    TYPE& operator[](INT_PTR nIndex) { return GetAt(nIndex); }

    // Null when the array is empty.
    const TYPE* GetData() const noexcept { return m_data.empty() ? nullptr : m_data.data(); }
    TYPE* GetData() noexcept { return m_data.empty() ? nullptr : m_data.data(); }

    // Sets the element, growing the array first when nIndex is past the end.
    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement) {
        if (nIndex < 0)
            AfxThrowInvalidArgException();
        TYPE copy(newElement);
        if (nIndex >= Size())
            SetSize(nIndex + 1);
        m_data[static_cast<std::size_t>(nIndex)] = std::move(copy);
    }
    INT_PTR Add(ARG_TYPE newElement) {
        const INT_PTR index = Size();
        SetAtGrow(index, newElement);
        return index;
    }
    // Adds copies of src's elements; answers the index of the first. src may not be this array.
    INT_PTR Append(const CArray& src) {
        if (&src == this)
            AfxThrowInvalidArgException();
        const INT_PTR first = Size();
        Reserve(first + src.Size());
        m_data.insert(m_data.end(), src.m_data.begin(), src.m_data.end());
        return first;
    }
    void Copy(const CArray& src) {
        if (&src != this)
            m_data = src.m_data;
    }

    // Inserts nCount copies at nIndex; an index past the end grows the array to reach it.
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1) {
        if (nIndex < 0 || nCount <= 0)
            AfxThrowInvalidArgException();
        TYPE copy(newElement);
        if (nIndex >= Size()) {
            SetSize(nIndex + nCount);
        } else {
            Reserve(Size() + nCount);
            m_data.insert(m_data.begin() + nIndex, static_cast<std::size_t>(nCount), TYPE());
        }
        std::fill_n(m_data.begin() + nIndex, nCount, copy);
    }
    // Inserts copies of all of pNewArray's elements at nStartIndex.
    void InsertAt(INT_PTR nStartIndex, const CArray* pNewArray) {
        if (!pNewArray || nStartIndex < 0)
            AfxThrowInvalidArgException();
        if (pNewArray->IsEmpty())
            return;
        const std::vector<TYPE> copy(pNewArray->m_data);
        if (nStartIndex > Size())
            SetSize(nStartIndex);
        Reserve(Size() + static_cast<INT_PTR>(copy.size()));
        m_data.insert(m_data.begin() + nStartIndex, copy.begin(), copy.end());
    }
    // Removes nCount elements from nIndex; the range must lie within the array.
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) {
        if (nIndex < 0 || nCount < 0 || nCount > Size() - nIndex)
            AfxThrowInvalidArgException();
        m_data.erase(m_data.begin() + nIndex, m_data.begin() + nIndex + nCount);
    }

    // The count, then the elements through SerializeElements. Loading replaces the contents; a
    // count larger than the data ends in endOfFile without first allocating all of it.
    void Serialize(CArchive& ar) override {
        CObject::Serialize(ar);
        if (ar.IsStoring()) {
            ar.WriteCount(static_cast<DWORD_PTR>(Size()));
            SerializeElements<TYPE>(ar, GetData(), Size());
            return;
        }
        RemoveAll();
        constexpr DWORD_PTR piece = 1 << 16;
        for (DWORD_PTR left = ar.ReadCount(); left > 0;) {
            const DWORD_PTR now = std::min(left, piece);
            const INT_PTR start = Size();
            SetSize(start + static_cast<INT_PTR>(now));
            SerializeElements<TYPE>(ar, m_data.data() + start, static_cast<INT_PTR>(now));
            left -= now;
        }
    }

private:
    INT_PTR Size() const noexcept { return static_cast<INT_PTR>(m_data.size()); }
    std::size_t Checked(INT_PTR nIndex) const {
        if (nIndex < 0 || nIndex >= Size())
            AfxThrowInvalidArgException();
        return static_cast<std::size_t>(nIndex);
    }
    // Grows the storage by at least the grow-by step, and by an eighth of the capacity at least,
    // so that adding one element at a time stays linear.
    void Reserve(INT_PTR nNewSize) {
        const std::size_t wanted = static_cast<std::size_t>(nNewSize);
        const std::size_t capacity = m_data.capacity();
        if (wanted <= capacity)
            return;
        const std::size_t step = std::max<std::size_t>(
            {static_cast<std::size_t>(m_nGrowBy), capacity / 8, std::size_t{4}});
        m_data.reserve(std::max(wanted, capacity + step));
    }

    std::vector<TYPE> m_data;
    INT_PTR m_nGrowBy = 0;
};
