#include <gtest/gtest.h>

#include <memory>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "core/OrvHostCallbacks.h"
#include "core/ProductInfo.h"
#include "diagnostics/Outcome.h"
#include "mfc/StringResources.h"
#include "settings/OrvSettingsKey.h"
#include "support/TempRegistry.h"

namespace {

// What the add-in's side answers in these tests.
short g_alerts = -1;
OrvSettingsKey* g_appSettings = nullptr;
ProductInfo* g_product = nullptr;

void Alerts(short* out) {
    *out = g_alerts;
}
OrvSettingsKey* AppSettings() {
    return g_appSettings;
}
ProductInfo* Product() {
    return g_product;
}
CString ProductString(unsigned int id) {
    CString text;
    text.Format(L"caption %u", id);
    return text;
}

void Register() {
    OrvShareRegisterDocCBK(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           AppSettings, nullptr, Product, ProductString, Alerts, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

class OutcomeTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_registry = std::make_unique<TempRegistryDir>();
        g_alerts = -1;
        g_appSettings = nullptr;
        g_product = nullptr;
        Register();
        SetOrvMessageSink([this](const OrvMessageBoxRequest& box) {
            m_boxes.push_back(box);
            return m_answer;
        });
        SetOrvScriptedAnswerService(nullptr);
        port::SetStringResourceLoader([](UINT id, std::wstring& text) {
            static const std::map<UINT, std::wstring> strings = {
                {60113, L"Tool %s not found in %d places."}, {58237, L"Short"}, {100, L"%s"}};
            const auto found = strings.find(id);
            if (found == strings.end())
                return false;
            text = found->second;
            return true;
        });
        Outcome::m_buttonID = IDYES;
        m_settings.AddValue(L"Language", CString(L"French"));
    }
    void TearDown() override {
        SetOrvMessageSink(nullptr);
        SetOrvScriptedAnswerService(nullptr);
        port::SetStringResourceLoader(nullptr);
        m_registry.reset();
    }

    std::vector<OrvMessageBoxRequest> m_boxes;
    OrvSettingsKey m_settings{L"Application", L"Software\\Test"}; // the application's language
    int m_answer = IDNO;
    std::unique_ptr<TempRegistryDir> m_registry;
};

TEST_F(OutcomeTest, OkIsStatusZero) {
    EXPECT_EQ(Outcome(0).Ok(), 1);
    EXPECT_EQ(Outcome(3).Ok(), 0);
}

TEST_F(OutcomeTest, SeverityTableGivesStyleAndDefaultCaption) {
    struct Row {
        SeverityIndex severity;
        UINT style;
        const wchar_t* caption;
    };
    const Row rows[] = {
        {SEVERITY_ERROR, 0x10010, L"caption 2555"},
        {SEVERITY_WARNING_YESNO, 0x10034, L"caption 2554"},
        {SEVERITY_WARNING_YESNOCANCEL, 0x10033, L"caption 2554"},
        {SEVERITY_NOTE, 0x10040, L"caption 2553"},
        {SEVERITY_NOTE_YESNO, 0x10044, L"caption 2553"},
        {SEVERITY_NOTE_YESNOCANCEL, 0x10043, L"caption 2553"},
    };
    for (const Row& row : rows) {
        m_boxes.clear();
        EXPECT_EQ(Outcome(1, row.severity).Display(CString(L"text")), static_cast<UINT>(IDNO));
        ASSERT_EQ(m_boxes.size(), 1u);
        EXPECT_EQ(m_boxes[0].style, row.style);
        EXPECT_EQ(m_boxes[0].caption, CString(row.caption));
        EXPECT_EQ(m_boxes[0].text, CString(L"text"));
        EXPECT_EQ(m_boxes[0].helpContext, 0xFFFFFFFFu);
        EXPECT_FALSE(m_boxes[0].relabelled);
    }
}

TEST_F(OutcomeTest, ExplicitCaptionIdWinsAndUnknownSeverityShowsNothing) {
    Outcome(1, SEVERITY_WARNING_YESNO, 777).Display(CString(L"x"));
    ASSERT_EQ(m_boxes.size(), 1u);
    EXPECT_EQ(m_boxes[0].caption, CString(L"caption 777"));
    m_boxes.clear();
    EXPECT_EQ(static_cast<int>(Outcome(1, static_cast<SeverityIndex>(7)).Display(CString(L"x"))),
              -101);
    EXPECT_TRUE(m_boxes.empty());
}

TEST_F(OutcomeTest, AlertsOffAnswersYesUnlessAlwaysShown) {
    g_alerts = 0;
    Outcome outcome(1, SEVERITY_WARNING_YESNO);
    EXPECT_EQ(outcome.Display(CString(L"question")), static_cast<UINT>(IDYES));
    EXPECT_EQ(outcome.Display(60113, L"T1", 3), static_cast<UINT>(IDYES));
    EXPECT_TRUE(m_boxes.empty());
    outcome.SetAlwaysShowMsg(1);
    EXPECT_EQ(outcome.Display(CString(L"question")), static_cast<UINT>(IDNO));
    EXPECT_EQ(m_boxes.size(), 1u);
}

TEST_F(OutcomeTest, MessageByIdIsFormattedAndPassedToTheService) {
    UINT seenId = 0;
    SetOrvScriptedAnswerService([&](UINT style, UINT id, const CString& text) {
        seenId = id;
        EXPECT_EQ(style, 0x10010u);
        EXPECT_EQ(text, CString(L"Tool T7 not found in 2 places."));
        return std::optional<int>(IDCANCEL);
    });
    Outcome outcome(1, SEVERITY_ERROR);
    EXPECT_EQ(outcome.Display(60113, L"T7", 2), static_cast<UINT>(IDCANCEL));
    EXPECT_EQ(seenId, 60113u);
    EXPECT_TRUE(m_boxes.empty()); // the service answered: no box
}

TEST_F(OutcomeTest, ServiceThatDeclinesLetsTheBoxShow) {
    int asked = 0;
    SetOrvScriptedAnswerService([&](UINT, UINT, const CString&) {
        ++asked;
        return std::optional<int>();
    });
    EXPECT_EQ(Outcome(1, SEVERITY_NOTE).Display(CString(L"note")), static_cast<UINT>(IDNO));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(m_boxes.size(), 1u);
}

TEST_F(OutcomeTest, MissingResourceStringAnswersYes) {
    EXPECT_EQ(Outcome(1, SEVERITY_ERROR).Display(4242), static_cast<UINT>(IDYES));
    EXPECT_TRUE(m_boxes.empty());
}

TEST_F(OutcomeTest, MessageByIdIsCutAtLengthPlus500) {
    const std::wstring longArgument(700, L'x');
    Outcome(1, SEVERITY_ERROR).Display(100, longArgument.c_str());
    ASSERT_EQ(m_boxes.size(), 1u);
    // "%s" is 2 characters: a buffer of 502 holds 501 of them.
    EXPECT_EQ(m_boxes[0].text.GetLength(), 501);
}

TEST_F(OutcomeTest, ProductSpecificTextIsSubstituted) {
    ProductInfo product;
    product.m_ProductName = L"Ostrand";
    g_product = &product;
    Outcome(1, SEVERITY_NOTE, 0, 0xFFFFFFFF, nullptr, 1).Display(CString(L"Tarvex failed"));
    Outcome(1, SEVERITY_NOTE).Display(CString(L"Tarvex failed"));
    ASSERT_EQ(m_boxes.size(), 2u);
    EXPECT_EQ(m_boxes[0].text, CString(L"Ostrand failed"));
    EXPECT_EQ(m_boxes[1].text, CString(L"Tarvex failed"));
}

TEST_F(OutcomeTest, FocusOnNoAppliesToOneRelabelledBox) {
    Outcome plain(1, SEVERITY_WARNING_YESNO);
    plain.SetMessageBoxButtonFocus(IDNO);
    plain.Display(CString(L"plain")); // no hook on a plain box: the focus is kept for later
    EXPECT_EQ(Outcome::m_buttonID, IDNO);
    Outcome outcome(1, SEVERITY_WARNING_YESNO);
    outcome.SetMessageBoxButtonNewLabels(L"Keep", L"Discard");
    outcome.SetMessageBoxButtonFocus(IDNO);
    outcome.Display(CString(L"first"));
    outcome.Display(CString(L"second"));
    ASSERT_EQ(m_boxes.size(), 3u);
    EXPECT_EQ(m_boxes[0].focusButton, IDYES);
    EXPECT_TRUE(m_boxes[1].relabelled);
    EXPECT_EQ(m_boxes[1].yesLabel, CString(L"Keep"));
    EXPECT_EQ(m_boxes[1].noLabel, CString(L"Discard"));
    EXPECT_EQ(m_boxes[1].focusButton, IDNO);
    EXPECT_EQ(m_boxes[2].focusButton, IDYES);
    EXPECT_EQ(Outcome::m_buttonID, IDYES);
}

TEST_F(OutcomeTest, HelpContextUsesTheIndirectBoxWithLabels) {
    Outcome outcome(1, SEVERITY_NOTE_YESNO, 0, 5);
    outcome.SetMessageBoxButtonNewLabels(L"Oui", L"Non");
    outcome.Display(CString(L"help"));
    ASSERT_EQ(m_boxes.size(), 1u);
    EXPECT_EQ(m_boxes[0].style, 0x10044u | 0x4000u);
    EXPECT_EQ(m_boxes[0].helpContext, 5u);
    EXPECT_TRUE(m_boxes[0].relabelled);
    EXPECT_EQ(m_boxes[0].yesLabel, CString(L"Oui"));
}

TEST_F(OutcomeTest, FrenchWidensTheButtonsOncePerRelabelling) {
    g_appSettings = &m_settings;

    Outcome outcome(1, SEVERITY_WARNING_YESNOCANCEL);
    outcome.SetMessageBoxButtonNewLabels(L"Oui", L"Non", L"Annuler");
    outcome.Display(CString(L"one"));
    outcome.Display(CString(L"two"));
    ASSERT_EQ(m_boxes.size(), 2u);
    EXPECT_EQ(m_boxes[0].cancelLabel, CString(L"Annuler"));
    EXPECT_EQ(m_boxes[0].layout.yesMoveLeft, 50);
    EXPECT_EQ(m_boxes[0].layout.noMoveLeft, 50);
    EXPECT_EQ(m_boxes[0].layout.noGrowWider, 50);
    EXPECT_EQ(m_boxes[1].cancelLabel, CString(L"Annuler"));
    EXPECT_EQ(m_boxes[1].layout.noGrowWider, 0);
}

TEST_F(OutcomeTest, OtherLanguagesAndNewOutcomesDoNotWiden) {
    m_settings.SetValue(L"Language", CString(L"french")); // exact case only
    g_appSettings = &m_settings;
    Outcome first(1, SEVERITY_WARNING_YESNOCANCEL);
    first.SetMessageBoxButtonNewLabels(L"Oui", L"Non", L"Annuler");
    first.Display(CString(L"lower case"));

    m_settings.SetValue(L"Language", CString(L"French"));
    first.SetMessageBoxButtonNewLabels(L"Oui", L"Non", L"Annuler");
    Outcome second(1); // a new Outcome clears the class-wide widening flag
    first.Display(CString(L"after a new outcome"));
    ASSERT_EQ(m_boxes.size(), 2u);
    EXPECT_EQ(m_boxes[0].layout.noGrowWider, 0);
    EXPECT_EQ(m_boxes[1].layout.noGrowWider, 0);
    EXPECT_EQ(m_boxes[1].cancelLabel, CString(L"Annuler"));
}

TEST_F(OutcomeTest, DisplayDialogsSwitch) {
    EXPECT_EQ(Outcome::IsDisplayDialog(), 1);
    ASSERT_EQ(WriteDword(HKEY_CURRENT_USER, L"Software\\Halden\\Halden CAM\\2026",
                         L"CGMDisplayDialogs", 0),
              ERROR_SUCCESS);
    EXPECT_EQ(Outcome::IsDisplayDialog(), 0);
}

TEST_F(OutcomeTest, StuffStringFormatsAndCuts) {
    CString out = L"old";
    OrvStuffString(out, 60113, L"T2", 4);
    EXPECT_EQ(out, CString(L"Tool T2 not found in 4 places."));
    const std::wstring longArgument(300, L'y');
    OrvStuffString(out, 100, longArgument.c_str());
    EXPECT_EQ(out.GetLength(), 101); // "%s" + 100, less the terminator
    OrvStuffString(out, 9999);
    EXPECT_TRUE(out.IsEmpty());
}

TEST_F(OutcomeTest, DefaultSinkDescribesTheBox) {
    OrvMessageBoxRequest box;
    box.caption = L"Warning";
    box.text = L"Save changes?";
    box.style = 0x10033 | 0x4000;
    box.helpContext = 12;
    box.yesLabel = L"Oui";
    EXPECT_EQ(DescribeOrvMessageBox(box),
              CString(L"[Warning] Save changes?\n[Oui] [No] [Cancel] [Help 12] (style 0x14033)\n"));
    SetOrvMessageSink(nullptr);
    testing::internal::CaptureStderr();
    EXPECT_EQ(ShowOrvMessageBox(box), IDYES);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[Warning] Save changes?\n[Oui] [No] [Cancel] [Help 12] (style 0x14033)\n");
}

} // namespace
