#include "threads/OrvThreadDataLink.h"

OrvThreadDataLink::OrvThreadDataLink()
    : m_pIdentifierA(nullptr), m_pIdentifierB(nullptr), m_GroupNum(0) {}

OrvThreadDataLink::OrvThreadDataLink(const OrvThreadDataLink& other) = default;

OrvThreadDataLink& OrvThreadDataLink::operator=(const OrvThreadDataLink& other) = default;

OrvThreadDataLink::~OrvThreadDataLink() {
    m_pIdentifierA = nullptr;
    m_pIdentifierB = nullptr;
}
