// CList: MFC's doubly linked list of values, walked with POSITIONs. The list classes CObList,
// CPtrList and CStringList are instances of it.
#pragma once

#include <utility>

#include "mfc/CArchive.h"
#include "mfc/CObject.h"
#include "mfc/CollectionCore.h"

template <class TYPE, class ARG_TYPE = const TYPE&> class CList : public CObject {
public:
    // Nodes are allocated nBlockSize at a time at first; a block size below 1 is an invalid
    // argument.
    explicit CList(INT_PTR nBlockSize = 10) : m_nodes(nBlockSize) {}
    ~CList() override = default;

    INT_PTR GetCount() const noexcept { return m_nCount; }
    INT_PTR GetSize() const noexcept { return m_nCount; }
    BOOL IsEmpty() const noexcept { return m_nCount == 0; }

    // The head or tail of an empty list is an invalid argument.
    TYPE& GetHead() { return m_nodes[Existing(m_head)].data; }
    const TYPE& GetHead() const { return m_nodes[Existing(m_head)].data; }
    TYPE& GetTail() { return m_nodes[Existing(m_tail)].data; }
    const TYPE& GetTail() const { return m_nodes[Existing(m_tail)].data; }

    TYPE RemoveHead() { return Take(Existing(m_head)); }
    TYPE RemoveTail() { return Take(Existing(m_tail)); }

    POSITION AddHead(ARG_TYPE newElement) { return Link(npos, m_head, newElement); }
    POSITION AddTail(ARG_TYPE newElement) { return Link(m_tail, npos, newElement); }
    // Adds a copy of every element of pNewList, keeping their order; the list may be this one.
    void AddHead(CList* pNewList) {
        CheckList(pNewList);
        std::size_t index = pNewList->m_tail;
        for (INT_PTR left = pNewList->m_nCount; left > 0; --left) {
            const std::size_t prev = pNewList->m_nodes[index].prev;
            AddHead(pNewList->m_nodes[index].data);
            index = prev;
        }
    }
    void AddTail(CList* pNewList) {
        CheckList(pNewList);
        std::size_t index = pNewList->m_head;
        for (INT_PTR left = pNewList->m_nCount; left > 0; --left) {
            const std::size_t next = pNewList->m_nodes[index].next;
            AddTail(pNewList->m_nodes[index].data);
            index = next;
        }
    }

    void RemoveAll() noexcept {
        m_nodes.Clear();
        m_head = m_tail = npos;
        m_nCount = 0;
    }

    POSITION GetHeadPosition() const noexcept { return Pool::ToPosition(m_head); }
    POSITION GetTailPosition() const noexcept { return Pool::ToPosition(m_tail); }

    // Answer the element at rPosition and move rPosition on (null past the end).
    TYPE& GetNext(POSITION& rPosition) { return Step(rPosition, &Node::next); }
    const TYPE& GetNext(POSITION& rPosition) const { return Step(rPosition, &Node::next); }
    TYPE& GetPrev(POSITION& rPosition) { return Step(rPosition, &Node::prev); }
    const TYPE& GetPrev(POSITION& rPosition) const { return Step(rPosition, &Node::prev); }

    TYPE& GetAt(POSITION position) { return m_nodes[m_nodes.Check(position)].data; }
    const TYPE& GetAt(POSITION position) const { return m_nodes[m_nodes.Check(position)].data; }
    void SetAt(POSITION pos, ARG_TYPE newElement) { m_nodes[m_nodes.Check(pos)].data = newElement; }
    void RemoveAt(POSITION position) { Take(m_nodes.Check(position)); }

    // A null position inserts at the head (before) or the tail (after).
    POSITION InsertBefore(POSITION position, ARG_TYPE newElement) {
        if (!position)
            return AddHead(newElement);
        const std::size_t at = m_nodes.Check(position);
        return Link(m_nodes[at].prev, at, newElement);
    }
    POSITION InsertAfter(POSITION position, ARG_TYPE newElement) {
        if (!position)
            return AddTail(newElement);
        const std::size_t at = m_nodes.Check(position);
        return Link(at, m_nodes[at].next, newElement);
    }

    // The first element equal to searchValue after startAfter (from the head when null).
    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const {
        std::size_t index = startAfter ? m_nodes[m_nodes.Check(startAfter)].next : m_head;
        for (; index != npos; index = m_nodes[index].next)
            if (CompareElements<TYPE>(&m_nodes[index].data, &searchValue))
                return Pool::ToPosition(index);
        return nullptr;
    }
    // The position of the zero-based nIndex-th element; null when there is none.
    POSITION FindIndex(INT_PTR nIndex) const noexcept {
        if (nIndex < 0 || nIndex >= m_nCount)
            return nullptr;
        std::size_t index = m_head;
        for (; nIndex > 0; --nIndex)
            index = m_nodes[index].next;
        return Pool::ToPosition(index);
    }

    // The count, then each element through SerializeElements. Loading appends to the list.
    void Serialize(CArchive& ar) override {
        CObject::Serialize(ar);
        if (ar.IsStoring()) {
            ar.WriteCount(static_cast<DWORD_PTR>(m_nCount));
            for (std::size_t index = m_head; index != npos; index = m_nodes[index].next)
                SerializeElements<TYPE>(ar, &m_nodes[index].data, 1);
        } else {
            for (DWORD_PTR left = ar.ReadCount(); left > 0; --left) {
                TYPE newData[1] = {};
                SerializeElements<TYPE>(ar, newData, 1);
                AddTail(newData[0]);
            }
        }
    }

private:
    struct Node {
        TYPE data{};
        std::size_t prev = npos;
        std::size_t next = npos;
    };
    using Pool = port::NodePool<Node>;
    static constexpr std::size_t npos = Pool::npos;

    static std::size_t Existing(std::size_t index) {
        if (index == npos)
            AfxThrowInvalidArgException();
        return index;
    }
    static void CheckList(const CList* pList) {
        if (!pList)
            AfxThrowInvalidArgException();
    }

    template <typename Self>
    static auto& StepImpl(Self& self, POSITION& rPosition, std::size_t Node::*link) {
        const std::size_t index = self.m_nodes.Check(rPosition);
        rPosition = Pool::ToPosition(self.m_nodes[index].*link);
        return self.m_nodes[index].data;
    }
    TYPE& Step(POSITION& rPosition, std::size_t Node::*link) {
        return StepImpl(*this, rPosition, link);
    }
    const TYPE& Step(POSITION& rPosition, std::size_t Node::*link) const {
        return StepImpl(*this, rPosition, link);
    }

    // A new node holding value between prev and next (either may be npos).
    POSITION Link(std::size_t prev, std::size_t next, ARG_TYPE value) {
        // Copy first: value may refer to an element of this list.
        TYPE copy(value);
        const std::size_t index = m_nodes.Allocate();
        Node& node = m_nodes[index];
        node.data = std::move(copy);
        node.prev = prev;
        node.next = next;
        (prev == npos ? m_head : m_nodes[prev].next) = index;
        (next == npos ? m_tail : m_nodes[next].prev) = index;
        ++m_nCount;
        return Pool::ToPosition(index);
    }

    TYPE Take(std::size_t index) {
        Node& node = m_nodes[index];
        TYPE value = std::move(node.data);
        (node.prev == npos ? m_head : m_nodes[node.prev].next) = node.next;
        (node.next == npos ? m_tail : m_nodes[node.next].prev) = node.prev;
        m_nodes.Release(index);
        --m_nCount;
        return value;
    }

    Pool m_nodes;
    std::size_t m_head = npos;
    std::size_t m_tail = npos;
    INT_PTR m_nCount = 0;
};
