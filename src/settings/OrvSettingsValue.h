// OrvSettingsValue: a named leaf of a settings tree. The value classes add one typed datum each
// and fix its registry and archive forms.
#pragma once

#include "port/Export.h"

#include <cstddef>
#include <span>
#include <type_traits>

#include "core/OrvBaseObject.h"

class OrvSettingsKey;

class ORV_API OrvSettingsValue : public OrvBaseObject {
    DECLARE_SERIAL(OrvSettingsValue)
public:
    explicit OrvSettingsValue(CString name);

    // The base part, then the name. A value class appends its datum.
    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;

    // Write to and read from the registry key that `key` names; 1 on success. Here they do
    // nothing and answer 0.
    virtual int SaveValueToRegistry(OrvSettingsKey* key);
    virtual int RestoreValueFromRegistry(OrvSettingsKey* key);

    const CString& GetName() const { return m_Name; }

    // The bytes of the datum where it is a plain value; empty for texts and arrays. A key's
    // typed SetValue and GetValue copy through these bytes without asking which class the value
    // is, as callers of the settings tree have always relied on.
    virtual std::span<std::byte> GetDataBits();

protected:
    OrvSettingsValue() = default;

    CString m_Name;
};

// The bytes of a plain datum.
template <class T> std::span<std::byte> DataBitsOf(T& data) {
    static_assert(std::is_trivially_copyable_v<T>);
    return std::as_writable_bytes(std::span<T, 1>(&data, 1));
}
