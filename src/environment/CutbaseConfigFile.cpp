#include "environment/CutbaseConfigFile.h"

#include <filesystem>
#include <memory>

#include "port/TextConversion.h"
#include "util/KelXMLDocument.h"
#include "util/KelXMLNodeList.h"

namespace {

bool FileExists(const CString& path) {
    std::error_code error;
    return !path.IsEmpty() &&
           std::filesystem::is_regular_file(port::WideToNarrow(path.GetString()), error);
}

// The element "applicationSettings" below the root, found without regard to case.
KelXMLNode* FindApplicationSettings(KelXMLNode* root, std::unique_ptr<KelXMLNodeList>& holder) {
    holder.reset(root ? root->GetChildNodes() : nullptr);
    if (!holder)
        return nullptr;
    for (long i = 0; i < holder->GetSize(); ++i) {
        KelXMLNode* node = (*holder)[i];
        if (node->IsElement() && node->GetNodeName().CompareNoCase(L"applicationSettings") == 0)
            return node;
    }
    return nullptr;
}

bool IsSetting(KelXMLNode* node) {
    return node && node->IsElement() && node->GetNodeName() == L"setting";
}

// The text of the child element `name`, empty when there is none.
CString ChildText(KelXMLNode* node, const wchar_t* name) {
    std::unique_ptr<KelXMLNodeList> children(node->GetChildNodes());
    if (!children)
        return CString();
    for (long i = 0; i < children->GetSize(); ++i) {
        KelXMLNode* child = (*children)[i];
        if (child->IsElement() && child->GetNodeName() == name)
            return child->GetNodeValue();
    }
    return CString();
}

int ActiveFlagOf(KelXMLNode* setting) {
    CString text;
    return setting->GetAttributeValue(L"Default", text) && text.CompareNoCase(L"True") == 0 ? 1 : 0;
}

// An older one-database file: "applicationSettings" with exactly two children, whose setting
// lacks its "Default" mark, gets "Default"="True".
void RepairConfigFile(const CString& path) {
    KelXMLDocument document;
    std::unique_ptr<KelXMLNodeList> holder;
    KelXMLNode* settings = FindApplicationSettings(document.LoadFromFile(path), holder);
    if (!settings)
        return;
    std::unique_ptr<KelXMLNodeList> children(settings->GetChildNodes());
    if (!children || children->GetSize() != 2)
        return;
    bool repaired = false;
    for (long i = 0; i < children->GetSize(); ++i) {
        KelXMLNode* child = (*children)[i];
        CString kind, mark;
        if (IsSetting(child) && child->GetAttributeValue(L"databaseType", kind) &&
            !child->GetAttributeValue(L"Default", mark))
            repaired = child->AddAttribute(L"Default", L"True") || repaired;
    }
    if (repaired)
        document.Save();
}

OrvCutbaseConfigData* ReadFileRecord(KelXMLNode* setting, int type, const CString& configFolder) {
    const CString filePath = ChildText(setting, L"filePath");
    if (filePath.IsEmpty())
        return nullptr;
    auto data = std::make_unique<OrvCutbaseConfigData>();
    data->m_FilePath = NormaliseCutbaseFilePath(filePath, configFolder);
    data->m_ConnectionString = type == ORV_CUTBASE_SQLITE
                                   ? MakeSQLiteConnectionString(data->m_FilePath)
                                   : MakeAccessConnectionString(data->m_FilePath);
    data->m_DatabaseType = type;
    data->m_ActiveFlag = ActiveFlagOf(setting);
    if (type == ORV_CUTBASE_SQLITE)
        data->m_Description = ChildText(setting, L"description");
    return data.release();
}

OrvCutbaseConfigData* ReadServerRecord(KelXMLNode* setting) {
    const CString authentication = ChildText(setting, L"authenticationMode");
    auto data = std::make_unique<OrvCutbaseConfigData>();
    data->m_ConnectionString = MakeSQLServerConnectionString(
        ChildText(setting, L"serverID"), ChildText(setting, L"databaseName"),
        authentication.CompareNoCase(L"windows") == 0 ? 1 : 0, ChildText(setting, L"userID"),
        ChildText(setting, L"password"));
    data->m_DatabaseType = ORV_CUTBASE_SQL;
    data->m_ActiveFlag = ActiveFlagOf(setting);
    return data.release();
}

int ReadRecords(const CString& path, const CString& configFolder, OrvCutbaseConfigInfo& info) {
    KelXMLDocument document;
    std::unique_ptr<KelXMLNodeList> holder;
    KelXMLNode* settings = FindApplicationSettings(document.LoadFromFile(path), holder);
    if (!settings)
        return 0;
    std::unique_ptr<KelXMLNodeList> children(settings->GetChildNodes());
    for (long i = 0; children && i < children->GetSize(); ++i) {
        KelXMLNode* child = (*children)[i];
        CString kind;
        if (!IsSetting(child) || !child->GetAttributeValue(L"databaseType", kind))
            continue;
        if (kind.CompareNoCase(L"sqlite") == 0)
            info.AddCutbaseConfigData(ReadFileRecord(child, ORV_CUTBASE_SQLITE, configFolder));
        else if (kind.CompareNoCase(L"ms-access") == 0)
            info.AddCutbaseConfigData(ReadFileRecord(child, ORV_CUTBASE_ACCESS, configFolder));
        else if (kind.CompareNoCase(L"sql") == 0)
            info.AddCutbaseConfigData(ReadServerRecord(child));
    }
    return 1;
}

} // namespace

CString GetCutbaseKindWord(int databaseType) {
    switch (databaseType) {
    case ORV_CUTBASE_SQLITE:
        return L"sqlite";
    case ORV_CUTBASE_ACCESS:
        return L"ms-access";
    case ORV_CUTBASE_SQL:
        return L"sql";
    default:
        return CString();
    }
}

CString NormaliseCutbaseFilePath(const CString& filePath, const CString& configFolder) {
    if (filePath.FindOneOf(L"\\/") >= 0)
        return filePath;
    return configFolder + filePath;
}

int ReadCutbaseConfigFile(const CString& configFolder, const CString& defaultSQLitePath,
                          OrvCutbaseConfigInfo& info) {
    if (configFolder.IsEmpty())
        return 0;
    const CString path = configFolder + L"database.config";
    if (FileExists(path)) {
        RepairConfigFile(path);
        return ReadRecords(path, configFolder, info);
    }
    if (!FileExists(defaultSQLitePath))
        return 0;
    auto data = std::make_unique<OrvCutbaseConfigData>();
    data->m_DatabaseType = ORV_CUTBASE_SQLITE;
    data->m_FilePath = defaultSQLitePath;
    data->m_ConnectionString = MakeSQLiteConnectionString(defaultSQLitePath);
    data->m_ActiveFlag = 1;
    info.AddCutbaseConfigData(data.release());
    return 1;
}

int WriteCutbaseConfigFile(const CString& configFilePath, const OrvCutbaseConfigInfo& info) {
    KelXMLDocument document;
    std::unique_ptr<KelXMLNodeList> holder;
    KelXMLNode* settings = FindApplicationSettings(document.LoadFromFile(configFilePath), holder);
    if (!settings)
        return 0;
    std::unique_ptr<KelXMLNodeList> children(settings->GetChildNodes());
    if (!children || children->GetSize() != info.GetCount() + 1)
        return 0;
    for (int i = 0; i < info.GetCount(); ++i) {
        KelXMLNode* child = (*children)[i + 1];
        const OrvCutbaseConfigData* data = info.GetCutbaseConfigData(i);
        CString kind;
        if (!IsSetting(child) || !child->GetAttributeValue(L"databaseType", kind) ||
            kind.CompareNoCase(GetCutbaseKindWord(data->m_DatabaseType)) != 0)
            return 0;
        child->AddAttribute(L"Default", data->m_ActiveFlag == 1 ? L"True" : L"False");
    }
    return document.Save() ? 1 : 0;
}
