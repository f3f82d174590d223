#include "objects/CFlaggedError.h"

#include "core/OrvDocAccessors.h"
#include "core/OrvDumpBanner.h"
#include "geometry/FRConstants.h"

IMPLEMENT_SERIAL(CFlaggedError, CObject, VERSIONABLE_SCHEMA | 2)

CFlaggedError::CFlaggedError() : CFlaggedError(-1, NORMAL) {}

CFlaggedError::CFlaggedError(int errorString, FlaggedErrorEnum type)
    : m_eFlaggedErrorType(type), m_iErrorStringID(errorString) {}

CFlaggedError::CFlaggedError(const CFlaggedError& other)
    : CObject(), m_eFlaggedErrorType(other.m_eFlaggedErrorType), m_bFlag(other.m_bFlag),
      m_iErrorStringID(other.m_iErrorStringID), m_bCanClearError(other.m_bCanClearError),
      m_bAllowEditing(other.m_bAllowEditing) {}

CFlaggedError& CFlaggedError::operator=(const CFlaggedError& other) {
    m_eFlaggedErrorType = other.m_eFlaggedErrorType;
    m_bFlag = other.m_bFlag;
    m_iErrorStringID = other.m_iErrorStringID;
    m_bCanClearError = other.m_bCanClearError;
    m_bAllowEditing = other.m_bAllowEditing;
    return *this;
}

CFlaggedError* CFlaggedError::Clone() const {
    return new CFlaggedError(*this);
}

void CFlaggedError::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar.SerializeClass(RUNTIME_CLASS(CFlaggedError));
        ar << m_bFlag << static_cast<int>(m_eFlaggedErrorType);
        return;
    }
    UINT schema = 0;
    if (GetActiveDocReadStorageUnits() > 32.002 - RESABS) {
        ar.SerializeClass(RUNTIME_CLASS(CFlaggedError));
        schema = ar.GetObjectSchema();
    }
    int flag = 0;
    ar >> flag;
    if (schema >= 2 && schema != 0xFFFFFFFF) {
        int type = 0;
        ar >> type;
        m_eFlaggedErrorType = static_cast<FlaggedErrorEnum>(type);
    }
    m_bFlag = flag;
}

void CFlaggedError::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"CFlaggedError", L"Start");
    port::FilePrintf(file, L"\n m_eFlaggedErrorType : ");
    switch (m_eFlaggedErrorType) {
    case NORMAL:
        port::FilePrintf(file, L"NORMAL");
        break;
    case STOCK:
        port::FilePrintf(file, L"STOCK");
        break;
    case SEGMENT:
        port::FilePrintf(file, L"SEGMENT");
        break;
    default:
        port::FilePrintf(file, L"Nothing");
        break;
    }
    port::FilePrintf(file, m_bFlag ? L"\n m_bFlag : YES" : L"\n m_bFlag : NO");
    port::FilePrintf(file, L"\n m_iErrorStringID: %d", m_iErrorStringID);
    port::FilePrintf(file,
                     m_bCanClearError ? L"\n m_bCanClearError : YES" : L"\n m_bCanClearError : NO");
    port::FilePrintf(file,
                     m_bAllowEditing ? L"\n m_bAllowEditing : YES" : L"\n m_bAllowEditing : NO");
    OrvDumpBanner(file, L"CFlaggedError", L"End");
}
