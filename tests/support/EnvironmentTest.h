// A fresh registry and a scratch folder for each test of the environment.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "support/TempRegistry.h"

class EnvironmentTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_scratch = std::make_unique<TempFolder>();
        m_registry = std::make_unique<TempRegistryDir>();
        m_root = m_scratch->Path();
    }
    void TearDown() override {
        m_registry.reset();
        m_scratch.reset();
    }

    // A folder below the scratch root, created; as text with a final '/'.
    std::string Folder(const std::string& relative) const { return m_scratch->Folder(relative); }

    std::unique_ptr<TempFolder> m_scratch;
    std::unique_ptr<TempRegistryDir> m_registry;
    std::filesystem::path m_root;
};

// Registry paths the tests check by hand.
inline constexpr const wchar_t* kVersionKey = L"Software\\Halden\\Halden CAM\\2026";
inline constexpr const wchar_t* kDebugKey = L"Software\\Halden\\Halden CAM\\2026\\Debug";
inline constexpr const wchar_t* kIndependentDebugKey = L"Software\\Halden\\Halden CAM\\Debug";
inline constexpr const wchar_t* kPostDataKey = L"Software\\Halden\\Halden CAM\\PostData";
