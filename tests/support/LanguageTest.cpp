#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeWidget>

#include "support/Language.h"
#include "support/QptMessages.h"
#include "tests/common/ScratchHome.h"

// Stand-ins of the skinned controls: matched by class name, with and without
// the namespace, and carrying their texts in properties.
class TRdImageButton : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Caption MEMBER caption)
    Q_PROPERTY(QString Hint MEMBER hint)
public:
    using QWidget::QWidget;
    QString caption, hint;
};

namespace qpt {

class TRdLabel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Caption MEMBER caption)
public:
    using QWidget::QWidget;
    QString caption;
};

class TRdHtmLabel : public TRdLabel {
    Q_OBJECT
public:
    using TRdLabel::TRdLabel;
};

class TLabelNote : public QObject {
    Q_OBJECT
    Q_PROPERTY(QStringList Items MEMBER items)
public:
    using QObject::QObject;
    QStringList items;
};

// A skinned menu's entry: no widget, and it lives under its menu.
class TMenuItem : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Caption MEMBER caption)
public:
    using QObject::QObject;
    QString caption;
};

class TImageNote : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool ShowHint MEMBER showHint)
public:
    using QWidget::QWidget;
    bool showHint = false;
};

namespace {

using testing::WriteFile;

QByteArray Utf16File(const QString& text) {
    QByteArray bytes("\xFF\xFE", 2);
    for (QChar c : text) {
        bytes += char(c.unicode() & 0xFF);
        bytes += char(c.unicode() >> 8);
    }
    return bytes;
}

class LanguageTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static int argc = 1;
        static char name[] = "support_tests";
        static char* argv[] = {name, nullptr};
        if (!QApplication::instance()) new QApplication(argc, argv);
    }
    QString Folder() const { return dir_.path() + "/Language"; }
    void WriteLng(const QString& name, const QByteArray& text) {
        WriteFile(Folder() + '/' + name + ".lng", text);
    }
    void WriteEnglishAndGerman() {
        WriteLng("English",
                 "[Main]\nDisplayName=English\n[QPT_Main_M]\nM_OK=OK\nM_Close=Close\n"
                 "[QPT_M]\nM_OK=General OK\n"
                 "[QPT_FormTest]\nlbl_Title.Caption=Title\nbtn_Go.Caption=Go\n");
        WriteLng("German",
                 "\xEF\xBB\xBF[Main]\nDisplayName=Deutsch\n[QPT_Main_M]\nM_Close=Schlie\xC3\x9F"
                 "en\nM_OK=\n[QPT_FormTest]\nlbl_Title.Caption=Titel\nbtn_Go.Caption=\n");
    }

    testing::ScratchHome home_;
    QTemporaryDir dir_;
};

TEST_F(LanguageTest, UnknownLanguageFallsBackToEnglish) {
    WriteEnglishAndGerman();
    TLanguage language("QPT", Folder());
    language.SetLanguage("Klingon");
    EXPECT_EQ(language.LanguageName(), "English");
    EXPECT_EQ(language.DisplayName(), "English");
    EXPECT_EQ(language.GetText("M_OK", "x"), "General OK");
    // Names that point outside the folder count as unknown.
    language.SetLanguage("../Language/German");
    EXPECT_EQ(language.LanguageName(), "English");
}

// A pipe would block the start for ever, a link to an endless device would
// fill the memory: both count as a missing language file.
TEST_F(LanguageTest, PipesAndDevicesCountAsMissingFiles) {
    WriteEnglishAndGerman();
    const QString german = Folder() + "/German.lng";
    QFile::remove(german);
    ASSERT_EQ(::mkfifo(QFile::encodeName(german).constData(), 0600), 0);
    TLanguage language("QPT", Folder());
    language.SetLanguage("German");
    EXPECT_EQ(language.LanguageName(), "English");

    const QString english = Folder() + "/English.lng";
    for (const char* device : {"/dev/zero", "/dev/urandom"}) {
        QFile::remove(english);
        ASSERT_TRUE(QFile::link(device, english));
        TLanguage broken("QPT", Folder());
        broken.SetLanguage("German");
        EXPECT_EQ(broken.LanguageName(), "") << device;
        EXPECT_EQ(broken.GetText("M_OK", "OK"), "OK");
    }
}

TEST_F(LanguageTest, WithoutLanguageFolderEverythingKeepsItsDefault) {
    TLanguage language("QPT", dir_.path() + "/nowhere");
    language.SetLanguage("German");
    language.AddSection("QPT_Main");
    EXPECT_EQ(language.LanguageName(), "");
    EXPECT_EQ(language.GetText("M_OK", "OK"), "OK");
    EXPECT_EQ(language.GetIniText("QPT_FormTest", "lbl_Title.Caption", "Design"), "Design");
    FetchMessageTexts(language);
    EXPECT_EQ(QptMessages().Text("M_Screen_Copy"), "Copy to clipboard");
}

TEST_F(LanguageTest, EmptyValueIsKeptByGetTextButFallsThroughInGetIniText) {
    WriteEnglishAndGerman();
    TLanguage language("QPT", Folder());
    language.SetLanguage("German");
    EXPECT_EQ(language.DisplayName(), "Deutsch");
    language.AddSection("QPT_Main");
    EXPECT_EQ(language.GetText("m_ok", "OK"), "");
    EXPECT_EQ(language.GetText("M_Close", "Close"), QString::fromUtf8("Schlie\xC3\x9F"
                                                                      "en"));
    EXPECT_EQ(language.GetIniText("QPT_FormTest", "btn_Go.Caption", "x"), "Go");
    EXPECT_EQ(language.GetIniText("QPT_FormTest", "lbl_Title.Caption", "x"), "Titel");
    EXPECT_EQ(language.ReadCurrent("QPT_FormTest", "missing", "d"), "d");
}

TEST_F(LanguageTest, AddSectionMergesOnceAndFirstKeyWins) {
    WriteEnglishAndGerman();
    TLanguage language("QPT", Folder());
    language.SetLanguage("English");
    EXPECT_EQ(language.GetText("M_Close", "-"), "-");
    language.AddSection("QPT_Main");
    language.AddSection("qpt_main");
    EXPECT_EQ(language.LoadedSections(), "QPT_Main_M|QPT_M");
    EXPECT_EQ(language.GetText("M_Close", "-"), "Close");
    EXPECT_EQ(language.GetText("M_OK", "-"), "General OK");
    // A new language starts the table afresh.
    language.SetLanguage("German");
    EXPECT_EQ(language.LoadedSections(), "QPT_M");
    EXPECT_EQ(language.GetText("M_Close", "-"), "-");
}

TEST_F(LanguageTest, PartialMessageSectionLeavesTheOtherMessagesEnglish) {
    WriteLng("French", Utf16File("[QPT_Main_M]\r\nM_Screen_Save=Enregistrer\r\n"));
    TLanguage language("QPT", Folder());
    language.SetLanguage("French");
    EXPECT_EQ(language.DisplayName(), "French");
    language.AddSection("QPT_Main");
    TQptMessages messages;
    messages.Fetch(language);
    EXPECT_EQ(messages.Text("M_Screen_Save"), "Enregistrer");
    EXPECT_EQ(messages.Text("M_Screen_Copy"), "Copy to clipboard");
    EXPECT_EQ(messages.Text("M_Tray_ShortNoneHint "), "Click the icon here to start to capture");
    EXPECT_EQ(messages.Text("no such key"), "");
}

TEST_F(LanguageTest, CurrentLanguageNameComesFromTheSettingsFile) {
    EXPECT_EQ(TLanguage::CurrentLanguageName(), "English");
    WriteFile(home_.configHome() + "Zelk Screenshot/Main.ini",
              Utf16File("[Main]\r\nLanguage = German\r\n"));
    EXPECT_EQ(TLanguage::CurrentLanguageName(), "German");
}

TEST_F(LanguageTest, ShippedEnglishFileMatchesTheBuiltInTable) {
    TLanguage language("QPT", QStringLiteral(QPT_SOURCE_DIR "/Language"));
    language.SetLanguage("English");
    language.AddSection("QPT_Main");
    ASSERT_EQ(language.LanguageName(), "English");
    const TQptMessages builtIn;
    const QStringList keys = TQptMessages::Keys();
    EXPECT_EQ(keys.size(), 53);
    for (const QString& key : keys)
        EXPECT_EQ(language.GetText(key.trimmed(), "<missing>"), builtIn.Text(key))
            << key.toStdString();
}

TEST(FormatTextTest, FillsTheFirstPlaceholderAndIgnoresAMissingOne) {
    EXPECT_EQ(FormatText("Press %s again", "\"ESC\""), "Press \"ESC\" again");
    EXPECT_EQ(FormatText("%s exists, %s", "a.png"), "a.png exists, %s");
    EXPECT_EQ(FormatText("Appuyez encore", "x"), "Appuyez encore");
}

// One form with a component of every kind the rules know.
struct TestForm {
    QWidget form;
    QLabel* label = new QLabel("design label", &form);
    QPushButton* button = new QPushButton("design button", &form);
    QGroupBox* group = new QGroupBox("design group", &form);
    QCheckBox* check = new QCheckBox("design check", group);
    QAction* action = new QAction("design action", &form);
    QToolButton* tool = new QToolButton(&form);
    QTabWidget* tabs = new QTabWidget(&form);
    QComboBox* combo = new QComboBox(&form);
    QTreeWidget* tree = new QTreeWidget(&form);
    QTableWidget* table = new QTableWidget(0, 2, &form);
    TRdImageButton* image = new TRdImageButton(&form);
    TRdHtmLabel* html = new TRdHtmLabel(&form);
    TLabelNote* note = new TLabelNote(&form);
    TImageNote* imageNote = new TImageNote(&form);
    QLabel* untouched = new QLabel("keep me", &form);
    QObject* menu = new QObject(&form);
    TMenuItem* menuItem = new TMenuItem(menu);

    TestForm() {
        form.setObjectName("FormTest");
        for (auto [object, name] :
             std::initializer_list<std::pair<QObject*, const char*>>{{label, "lbl_A"},
                                                                     {button, "btn_B"},
                                                                     {group, "grp_C"},
                                                                     {check, "chk_D"},
                                                                     {action, "MenuE"},
                                                                     {tool, "tb_F"},
                                                                     {combo, "cmb_G"},
                                                                     {tree, "tv_H"},
                                                                     {table, "lv_I"},
                                                                     {image, "Btn_Rd_J"},
                                                                     {html, "lbl_K"},
                                                                     {note, "note_L"},
                                                                     {imageNote, "img_M"},
                                                                     {untouched, "lbl_N"},
                                                                     {menu, "Menu_P"},
                                                                     {menuItem, "MenuQ"}})
            object->setObjectName(name);
        auto* page = new QWidget;
        page->setObjectName("tab_O");
        tabs->addTab(page, "design tab");
        combo->addItems({"one", "two"});
        auto* root = new QTreeWidgetItem(tree, {"root"});
        new QTreeWidgetItem(root, {"child"});
        new QTreeWidgetItem(tree, {"second"});
        table->setHorizontalHeaderLabels({"c0", "c1"});
        image->caption = "design caption";
        image->hint = "design hint";
        note->items = {"n0", "n1"};
        imageNote->setToolTip("design tip");
        menuItem->caption = "design item";
    }
};

TEST_F(LanguageTest, TranslateFormAppliesEveryRuleAndKeepsDesignTexts) {
    WriteLng("English",
             "[QPT_FormTest]\nlbl_A.Caption=Label\nbtn_B.Caption=Button\ngrp_C.Caption=Group\n"
             "chk_D.Caption=Check\nMenuE.Caption=Action\ntb_F.Caption=Tool\n"
             "cmb_G.Items[1].Caption=Two\ntv_H.Items[1].Caption=Child\n"
             "tv_H.Items[2].Caption=Second\nlv_I.Columns[1].Caption=Col\n"
             "Btn_Rd_J.Caption=Caption\nBtn_Rd_J.Hint=Hint\nlbl_K.Caption=Html\n"
             "note_L.Items[0].Caption=Note\nimg_M.Hint=Tip\ntab_O.Caption=Tab\n"
             "MenuQ.Caption=Item\n");
    TLanguage language("QPT", Folder());
    language.SetLanguage("English");
    TestForm f;
    language.TranslateForm(&f.form);
    EXPECT_EQ(f.label->text(), "Label");
    EXPECT_EQ(f.button->text(), "Button");
    EXPECT_EQ(f.group->title(), "Group");
    EXPECT_EQ(f.check->text(), "Check");
    EXPECT_EQ(f.action->text(), "Action");
    EXPECT_EQ(f.tool->text(), "Tool");
    EXPECT_EQ(f.tabs->tabText(0), "Tab");
    EXPECT_EQ(f.combo->itemText(0), "one");
    EXPECT_EQ(f.combo->itemText(1), "Two");
    EXPECT_EQ(f.tree->topLevelItem(0)->text(0), "root");
    EXPECT_EQ(f.tree->topLevelItem(0)->child(0)->text(0), "Child");
    EXPECT_EQ(f.tree->topLevelItem(1)->text(0), "Second");
    EXPECT_EQ(f.table->horizontalHeaderItem(0)->text(), "c0");
    EXPECT_EQ(f.table->horizontalHeaderItem(1)->text(), "Col");
    EXPECT_EQ(f.image->caption, "Caption");
    EXPECT_EQ(f.image->hint, "Hint");
    EXPECT_EQ(f.html->caption, "Html");
    EXPECT_EQ(f.note->items, QStringList({"Note", "n1"}));
    // The image note's hint is switched off, so its key is not applied.
    EXPECT_EQ(f.imageNote->toolTip(), "design tip");
    EXPECT_EQ(f.untouched->text(), "keep me");
    EXPECT_EQ(f.menuItem->caption, "Item");
}

// "%%" is how a translator writes a percent sign, in component texts and in
// messages alike; a placeholder stays for the caller.
TEST_F(LanguageTest, DoublePercentShowsAsOnePercent) {
    WriteLng("English",
             "[QPT_Main_M]\nM_Screen_ExitTipCap=100%% sure? Press %s\n"
             "[QPT_FormTest]\nlbl_A.Caption=Zoom 100%%\n");
    TLanguage language("QPT", Folder());
    language.SetLanguage("English");
    language.AddSection("QPT_Main");
    TestForm f;
    language.TranslateForm(&f.form);
    EXPECT_EQ(f.label->text(), "Zoom 100%");
    TQptMessages messages;
    messages.Fetch(language);
    EXPECT_EQ(FormatText(messages.Text("M_Screen_ExitTipCap"), "ESC"), "100% sure? Press ESC");
}

TEST_F(LanguageTest, TranslateFormFallsBackFromCurrentToEnglishFile) {
    WriteEnglishAndGerman();
    TLanguage language("QPT", Folder());
    language.SetLanguage("German");
    TestForm f;
    f.label->setObjectName("lbl_Title");
    f.button->setObjectName("btn_Go");
    f.imageNote->showHint = true;
    language.TranslateForm(&f.form);
    EXPECT_EQ(f.label->text(), "Titel");
    EXPECT_EQ(f.button->text(), "Go");
    EXPECT_EQ(f.imageNote->toolTip(), "design tip");
}

TEST_F(LanguageTest, FormWithoutNameIsLeftAlone) {
    WriteLng("English", "[QPT_]\nlbl_A.Caption=Label\n[QPT_FormTest]\nimg_M.Hint=Tip\n");
    TLanguage language("QPT", Folder());
    language.SetLanguage("English");
    TestForm f;
    f.imageNote->showHint = true;
    language.TranslateForm(&f.form);
    EXPECT_EQ(f.imageNote->toolTip(), "Tip");
    f.form.setObjectName("");
    language.TranslateForm(&f.form);
    EXPECT_EQ(f.label->text(), "design label");
}

}  // namespace
}  // namespace qpt

#include "LanguageTest.moc"
