#include "windows/qt/QtTexts.h"

#include <QCoreApplication>
#include <QTranslator>
#include <algorithm>
#include <atomic>
#include <string_view>

namespace jlandxml
{

namespace
{

struct Text
{
    std::string_view context; ///< the class of Qt that shows it
    std::string_view english;
    const char* japanese;
};

constexpr Text TEXTS[] = {
    {"QFileDialog", "Back", "戻る"},
    {"QFileDialog", "Go back", "前に表示したフォルダーに戻る"},
    {"QFileDialog", "Forward", "進む"},
    {"QFileDialog", "Go forward", "次に表示したフォルダーに進む"},
    {"QFileDialog", "Parent Directory", "親フォルダー"},
    {"QFileDialog", "Go to the parent directory", "親フォルダーに移動する"},
    {"QFileDialog", "Create New Folder", "新しいフォルダーを作成"},
    {"QFileDialog", "Create a New Folder", "新しいフォルダーを作成する"},
    {"QFileDialog", "List View", "一覧表示"},
    {"QFileDialog", "Change to list view mode", "一覧表示に切り替える"},
    {"QFileDialog", "Detail View", "詳細表示"},
    {"QFileDialog", "Change to detail view mode", "詳細表示に切り替える"},
    {"QFileDialog", "Sidebar", "場所の一覧"},
    {"QFileDialog", "List of places and bookmarks", "場所とブックマークの一覧"},
    {"QFileDialog", "Files", "ファイルの一覧"},
    {"QFileDialog", "Look in:", "場所:"},
    {"QFileDialog", "Directory:", "フォルダー:"},
    {"QFileDialog", "File &name:", "ファイル名(&N):"},
    {"QFileDialog", "Files of type:", "ファイルの種類:"},
    {"QFileDialog", "&Open", "開く(&O)"},
    {"QFileDialog", "&Save", "保存(&S)"},
    {"QFileDialog", "&Choose", "選択(&C)"},
    {"QFileDialog", "&Rename", "名前の変更(&R)"},
    {"QFileDialog", "&Delete", "削除(&D)"},
    {"QFileDialog", "Show ", "表示: "},
    {"QFileDialog", "Show &hidden files", "隠しファイルを表示(&H)"},
    {"QFileDialog", "&New Folder", "新しいフォルダー(&N)"},
    {"QFileDialog", "New Folder", "新しいフォルダー"},
    {"QFileDialog", "Remove", "取り除く"},
    {"QFileDialog", "My Computer", "コンピューター"},
    {"QFileDialog", "Drive", "ドライブ"},
    {"QFileDialog", "File", "ファイル"},
    {"QFileDialog", "File Folder", "フォルダー"},
    {"QFileDialog", "Folder", "フォルダー"},
    {"QFileDialog", "Alias", "エイリアス"},
    {"QFileDialog", "Shortcut", "ショートカット"},
    {"QFileDialog", "Unknown", "不明"},
    {"QFileDialog", "Recent Places", "最近使った場所"},
    {"QFileDialog", "Directories", "フォルダー"},
    {"QFileDialog", "All Files (*)", "すべてのファイル (*)"},
    {"QFileDialog", "Could not delete directory.", "フォルダーを削除できません。"},
    {"QFileDialog", "Are you sure you want to delete '%1'?", "「%1」を削除しますか?"},
    {"QFileDialog", "'%1' is write protected.\nDo you want to delete it anyway?",
     "「%1」は書き込みが禁止されています。\n削除しますか?"},
    {"QFileDialog", "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nフォルダーが見つかりません。\nフォルダー名を確かめてください。"},
    {"QFileDialog", "%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nファイルが見つかりません。\nファイル名を確かめてください。"},
    {"QFileDialog", "Delete", "削除"},
    {"QAbstractFileIconProvider", "Drive", "ドライブ"},
    {"QAbstractFileIconProvider", "File", "ファイル"},
    {"QAbstractFileIconProvider", "%1 File", "%1ファイル"},
    {"QAbstractFileIconProvider", "File Folder", "フォルダー"},
    {"QAbstractFileIconProvider", "Folder", "フォルダー"},
    {"QAbstractFileIconProvider", "Alias", "エイリアス"},
    {"QAbstractFileIconProvider", "Shortcut", "ショートカット"},
    {"QAbstractFileIconProvider", "Unknown", "不明"},
    {"QFileSystemModel", "Name", "名前"},
    {"QFileSystemModel", "Size", "サイズ"},
    {"QFileSystemModel", "Kind", "種類"},
    {"QFileSystemModel", "Type", "種類"},
    {"QFileSystemModel", "Date Modified", "更新日時"},
    {"QFileSystemModel", "Computer", "コンピューター"},
    {"QFileSystemModel", "My Computer", "コンピューター"},
    {"QFileSystemModel", "Invalid filename", "名前が正しくありません"},
    {"QFileSystemModel",
     "<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no punctuation marks.",
     "<b>「%1」という名前は使えません。</b><p>短い名前か、記号のない名前にしてください。"},
    {"QLineEdit", "&Undo", "元に戻す(&U)"},
    {"QLineEdit", "&Redo", "やり直し(&R)"},
    {"QLineEdit", "Cu&t", "切り取り(&T)"},
    {"QLineEdit", "&Copy", "コピー(&C)"},
    {"QLineEdit", "&Paste", "貼り付け(&P)"},
    {"QLineEdit", "Delete", "削除"},
    {"QLineEdit", "Select All", "すべて選択"},
    {"QPlatformTheme", "OK", "OK"},
    {"QPlatformTheme", "&Yes", "はい(&Y)"},
    {"QPlatformTheme", "&No", "いいえ(&N)"},
    {"QPlatformTheme", "Cancel", "キャンセル"},
};

/// How many of the module's windows are being made or are open.
std::atomic<int> windows = 0;

/// Translates for the module's windows alone.
class Texts final : public QTranslator
{
  public:
    explicit Texts(QObject* parent) : QTranslator(parent) { setObjectName(NAME); }

    /// True keeps Qt from telling every window of the host that the language has changed.
    bool isEmpty() const override { return true; }

    QString translate(const char* context, const char* sourceText, const char* /*disambiguation*/,
                      int /*count*/) const override
    {
        if (windows == 0 || context == nullptr)
        {
            return {};
        }
        const auto* const text = std::find_if(std::begin(TEXTS), std::end(TEXTS), [&](const Text& one) {
            return one.context == context && one.english == sourceText;
        });
        return text != std::end(TEXTS) ? QString::fromUtf8(text->japanese) : QString();
    }

    inline static const QString NAME = QStringLiteral("JLandXmlConvertTexts");
};

} // namespace

JapaneseTexts::JapaneseTexts()
{
    // As long as the application object, since taking a translator away tells every window of the host.
    QCoreApplication* const application = QCoreApplication::instance();
    if (application->findChild<QTranslator*>(Texts::NAME, Qt::FindDirectChildrenOnly) == nullptr)
    {
        QCoreApplication::installTranslator(new Texts(application));
    }
    ++windows;
}

JapaneseTexts::~JapaneseTexts()
{
    --windows;
}

} // namespace jlandxml
