// A fixture whose document is the active one while each test runs: ids, storage version and
// archives of the nodes go through it.
#pragma once

#include <gtest/gtest.h>

#include "addin/NodeDocument.h"

class ActiveDocumentTest : public ::testing::Test {
protected:
    void SetUp() override { NodeDocument::Activate(&m_document); }
    void TearDown() override { NodeDocument::Activate(nullptr); }
    // The storage version that a load finds in the document.
    void SetStorageVersion(float version) { m_document.m_StorageUnits = version; }
    NodeDocument m_document;
};
