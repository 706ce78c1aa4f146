#include "windows/qt/QtDialog.h"

#include "windows/qt/QtApplication.h"

#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QIdentityProxyModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtGui/QKeyEvent>
#include <algorithm>
#include <cmath>
#include <limits>

namespace jlandxml
{

namespace
{

QString Q(const std::wstring& text)
{
    return QString::fromStdWString(text);
}

QString Q(const wchar_t* text)
{
    return QString::fromWCharArray(text);
}

/// What stands behind an entry or an item, as Qt keeps it.
QVariant Behind(const void* data)
{
    return QVariant::fromValue(const_cast<void*>(data));
}

QTreeWidgetItem* ItemOf(TreeItem item)
{
    return reinterpret_cast<QTreeWidgetItem*>(item);
}

TreeItem HandleOf(QTreeWidgetItem* item)
{
    return reinterpret_cast<TreeItem>(item);
}

/// Dialog units in pixels: a quarter of the mean width of the Latin letters, an eighth of the font's height. Where the
/// font's Japanese characters are wider than two Latin letters, they decide, so that no text is cut off.
class DialogUnits
{
  public:
    explicit DialogUnits(const QWidget& widget)
    {
        const QFontMetricsF metrics(widget.font());
        const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
        const double mean = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size());
        x_ = std::max(mean / 4.0, metrics.horizontalAdvance(QStringLiteral("線")) / 8.0);
        // An edit's frame takes more of its 14 units than on Windows.
        y_ = std::max(metrics.height() / 8.0, (metrics.height() + 8.0) / 14.0);
    }

    QRect Pixels(int x, int y, int width, int height) const
    {
        const int left = X(x);
        const int top = Y(y);
        return {left, top, X(x + width) - left, Y(y + height) - top};
    }

    int X(int units) const { return static_cast<int>(std::lround(units * x_)); }
    int Y(int units) const { return static_cast<int>(std::lround(units * y_)); }

  private:
    double x_;
    double y_;
};

/// How bright a color is to the eye, from 0 to 1: the relative luminance of WCAG 2.
double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// How well one color can be read on another, from 1 to 21: the contrast ratio of WCAG 2.
double Contrast(const QColor& one, const QColor& other)
{
    const auto [dark, bright] = std::minmax({Luminance(one), Luminance(other)});
    return (bright + 0.05) / (dark + 0.05);
}

QColor Mixed(const QColor& one, const QColor& other, float share)
{
    const auto mix = [&](float first, float second) { return first + (second - first) * share; };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

/// Locked values are there to be read. They stay paler than what can be worked, but no paler than can be read well.
void KeepReadable(QWidget& widget, QPalette::ColorRole textRole, QPalette::ColorRole groundRole)
{
    constexpr double ENOUGH = 5.0; // 4.5 by WCAG 2, and some for grounds that a style makes darker
    constexpr float PALEST = 0.5F;
    constexpr float STEP = 0.05F;
    QPalette palette = widget.palette();
    const QColor text = palette.color(QPalette::Active, textRole);
    const QColor ground = palette.color(QPalette::Disabled, groundRole);
    QColor pale = text;
    for (float share = PALEST; share > 0 && (pale == text || Contrast(pale, ground) < ENOUGH); share -= STEP)
    {
        pale = Mixed(text, ground, share);
    }
    palette.setColor(QPalette::Disabled, textRole, pale);
    widget.setPalette(palette);
}

/// The files of the save dialog with their kinds and times in Japanese; Qt takes both from the user's locale.
class JapaneseFiles final : public QIdentityProxyModel
{
  public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override
    {
        const auto* const files = static_cast<const QFileSystemModel*>(sourceModel());
        if (role == Qt::DisplayRole && index.column() == KIND_COLUMN)
        {
            return Kind(files->fileInfo(mapToSource(index)));
        }
        if (role == Qt::DisplayRole && index.column() == TIME_COLUMN)
        {
            return files->lastModified(mapToSource(index)).toString(QStringLiteral("yyyy/MM/dd HH:mm"));
        }
        return QIdentityProxyModel::data(index, role);
    }

  private:
    static QString Kind(const QFileInfo& file)
    {
        return file.isDir() ? QStringLiteral("フォルダー") : file.suffix().toUpper() + QStringLiteral("ファイル");
    }

    static constexpr int KIND_COLUMN = 2;
    static constexpr int TIME_COLUMN = 3;
};

/// "XML Files (*.xml)|*.xml|All Files (*.*)|*.*||" as Qt's "XML Files (*.xml);;All Files (*)".
QString QtFilter(const wchar_t* filter)
{
    const QStringList parts = Q(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList captions;
    for (qsizetype part = 0; part + 1 < parts.size(); part += 2)
    {
        captions << QString(parts[part]).replace(QStringLiteral("(*.*)"), QStringLiteral("(*)"));
    }
    return captions.join(QStringLiteral(";;"));
}

} // namespace

/// The window itself: closing it by any means is the cancel command.
class QtDialog::Window final : public QDialog
{
  public:
    Window(QtDialog& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {}

    void reject() override
    {
        dialog_.Tell([](DialogEvents& events) { events.OnClick(CANCEL_COMMAND); });
    }

    /// Qt selects the whole text of the edit that a dialog opens on, so that the first key would wipe it out.
    void setVisible(bool visible) override
    {
        QDialog::setVisible(visible);
        if (auto* const edit = qobject_cast<QLineEdit*>(focusWidget()); visible && edit != nullptr)
        {
            edit->setCursorPosition(0);
        }
    }

    /// The keyboard as on Windows: a tree selects its first item when it gets the focus, but not by a click, which
    /// selects what is clicked; and every arrow key goes on to the next radio or back to the former one, and round.
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* const tree = qobject_cast<QTreeWidget*>(object);
        if (tree != nullptr && event->type() == QEvent::FocusIn && tree->selectedItems().isEmpty() &&
            static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason)
        {
            tree->setCurrentItem(tree->topLevelItem(0));
        }
        auto* const radio = qobject_cast<QRadioButton*>(object);
        if (radio != nullptr && event->type() == QEvent::KeyPress)
        {
            return MoveAmongRadios(*radio, static_cast<QKeyEvent*>(event)->key());
        }
        return QDialog::eventFilter(object, event);
    }

  private:
    static bool MoveAmongRadios(QRadioButton& radio, int key)
    {
        const bool on = key == Qt::Key_Down || key == Qt::Key_Right;
        if (!on && key != Qt::Key_Up && key != Qt::Key_Left)
        {
            return false;
        }
        const QList<QAbstractButton*> group = radio.group()->buttons();
        const qsizetype step = on ? 1 : group.size() - 1;
        qsizetype place = group.indexOf(&radio);
        do
        {
            place = (place + step) % group.size();
        } while (!group[place]->isEnabled());
        group[place]->setFocus();
        group[place]->click();
        return true;
    }

    QtDialog& dialog_;
};

template <class Widget>
Widget* QtDialog::As(int control) const
{
    return qobject_cast<Widget*>(&At(control));
}

QtDialog::QtDialog(const DialogTemplate& dialog, DialogEvents& events, QtDialog* owner) : NativeDialog(dialog, events)
{
    QWidget* const parent = owner != nullptr ? owner->window_ : OwnerOfNextWindow();
    window_ = new Window(*this, parent);
    window_->setAttribute(Qt::WA_QuitOnClose, false);
    window_->setWindowTitle(Q(dialog.caption));
    window_->setObjectName(QString::number(dialog.number));
    const DialogUnits units(*window_);
    window_->setFixedSize(units.X(dialog.width), units.Y(dialog.height));
    for (const ControlTemplate& control : dialog.controls)
    {
        QWidget* const widget = Make(control);
        widget->setObjectName(QString::number(control.number));
        widget->setGeometry(units.Pixels(control.x, control.y, control.width, control.height));
        widgets_[control.number] = widget;
    }
    OrderTabs();
}

QtDialog::~QtDialog()
{
    // A host that has deleted its window has deleted this one with it.
    delete window_.data();
}

QWidget* QtDialog::Make(const ControlTemplate& control)
{
    switch (control.kind)
    {
    case ControlKind::Button:
    case ControlKind::DefaultButton:
        return MakeButton(control);
    case ControlKind::Group:
        return new QGroupBox(Q(control.caption), window_);
    case ControlKind::Label:
        return new QLabel(Q(control.caption), window_);
    case ControlKind::Edit:
    case ControlKind::ReadOnlyEdit:
        return MakeEdit(control);
    case ControlKind::List:
    case ControlKind::SortedList:
        return MakeList(control);
    case ControlKind::SortedListBox: {
        auto* const box = new QListWidget(window_);
        box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        box->setTextElideMode(Qt::ElideNone);
        return box;
    }
    case ControlKind::FirstRadio:
    case ControlKind::Radio:
        return MakeRadio(control);
    case ControlKind::Tree:
        break;
    }
    return MakeTree(control);
}

QWidget* QtDialog::MakeButton(const ControlTemplate& control)
{
    auto* const button = new QPushButton(Q(control.caption), window_);
    button->setDefault(control.kind == ControlKind::DefaultButton);
    QObject::connect(button, &QPushButton::clicked, window_,
                     [this, number = control.number] { Tell([&](DialogEvents& events) { events.OnClick(number); }); });
    return button;
}

QWidget* QtDialog::MakeEdit(const ControlTemplate& control)
{
    auto* const edit = new QLineEdit(window_);
    edit->setMaxLength(std::numeric_limits<int>::max());
    if (control.kind == ControlKind::ReadOnlyEdit)
    {
        edit->setReadOnly(true);
        QPalette palette = edit->palette();
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
        edit->setPalette(palette);
    }
    KeepReadable(*edit, QPalette::Text, QPalette::Base);
    QObject::connect(edit, &QLineEdit::textChanged, window_, [this, number = control.number] {
        Tell([&](DialogEvents& events) { events.OnTextChanged(number); });
    });
    return edit;
}

QWidget* QtDialog::MakeList(const ControlTemplate& control)
{
    auto* const list = new QComboBox(window_);
    const int rowHeight = std::max(1, list->fontMetrics().height() + 2);
    KeepReadable(*list, QPalette::ButtonText, QPalette::Button);
    list->setMaxVisibleItems(std::max(1, DialogUnits(*window_).Y(control.dropDownHeight) / rowHeight));
    return list;
}

QWidget* QtDialog::MakeRadio(const ControlTemplate& control)
{
    auto* const radio = new QRadioButton(Q(control.caption), window_);
    if (control.kind == ControlKind::FirstRadio)
    {
        radioGroups_.push_back(new QButtonGroup(window_));
    }
    radioGroups_.back()->addButton(radio);
    radio->installEventFilter(window_);
    QObject::connect(radio, &QRadioButton::clicked, window_,
                     [this, number = control.number] { Tell([&](DialogEvents& events) { events.OnClick(number); }); });
    return radio;
}

QWidget* QtDialog::MakeTree(const ControlTemplate& control)
{
    auto* const tree = new QTreeWidget(window_);
    tree->setHeaderHidden(true);
    tree->setSelectionMode(QAbstractItemView::SingleSelection);
    tree->installEventFilter(window_);
    // What is selected counts: the current item alone moves when the tree gets the focus.
    QObject::connect(tree, &QTreeWidget::itemSelectionChanged, window_, [this, tree, number = control.number] {
        const QList<QTreeWidgetItem*> selected = tree->selectedItems();
        QTreeWidgetItem* const item = selected.isEmpty() ? nullptr : selected.first();
        Tell([&](DialogEvents& events) { events.OnTreeSelectionChanged(number, HandleOf(item)); });
    });
    return tree;
}

void QtDialog::OrderTabs()
{
    QWidget* last = nullptr;
    for (const ControlTemplate& control : Template().controls)
    {
        QWidget* const widget = widgets_[control.number];
        if (widget->focusPolicy() == Qt::NoFocus)
        {
            continue;
        }
        if (last != nullptr)
        {
            QWidget::setTabOrder(last, widget);
        }
        last = widget;
    }
}

/// Takes off a tree's height what the last row would be cut off by.
void QtDialog::ShowWholeRows() const
{
    for (const auto& [control, widget] : widgets_)
    {
        auto* const tree = qobject_cast<QTreeWidget*>(widget);
        const int rowHeight = tree != nullptr ? tree->sizeHintForRow(0) : 0;
        if (rowHeight > 0)
        {
            const int rows = tree->height() - 2 * tree->frameWidth();
            tree->resize(tree->width(), tree->height() - rows % rowHeight);
        }
    }
}

void QtDialog::FocusFirst()
{
    const ControlTemplate* const first =
        FindFirstFocus(Template(), [&](int control) { return At(control).isEnabled() && !At(control).isHidden(); });
    if (first != nullptr)
    {
        At(first->number).setFocus();
    }
}

DialogResult QtDialog::RunModal()
{
    Tell([](DialogEvents& events) { events.OnInitDialog(); });
    if (!ended_)
    {
        ShowWholeRows();
        FocusFirst();
        window_->exec();
    }
    RethrowFailure();
    return Result();
}

void QtDialog::Close()
{
    ended_ = true;
    window_->done(Result() == DialogResult::Accepted ? QDialog::Accepted : QDialog::Rejected);
}

void QtDialog::Raise()
{
    window_->raise();
    window_->activateWindow();
}

void QtDialog::ShowWaitCursor(bool shown)
{
    if (shown)
    {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    else
    {
        QApplication::restoreOverrideCursor();
    }
}

void QtDialog::Enable(int control, bool enabled)
{
    At(control).setEnabled(enabled);
}

void QtDialog::Show(int control, bool shown)
{
    At(control).setVisible(shown);
}

void QtDialog::SetText(int control, const std::wstring& text)
{
    auto* const edit = As<QLineEdit>(control);
    if (edit == nullptr)
    {
        return;
    }
    {
        // Qt tells of a change only where the text differs.
        const QSignalBlocker quiet(edit);
        const qsizetype behindCursor = edit->text().size() - edit->cursorPosition();
        edit->setText(Q(text));
        const bool typing = edit->hasFocus() && behindCursor <= edit->text().size();
        edit->setCursorPosition(typing ? static_cast<int>(edit->text().size() - behindCursor) : 0);
    }
    Tell([&](DialogEvents& events) { events.OnTextChanged(control); });
}

std::wstring QtDialog::Text(int control) const
{
    if (const auto* const list = As<QComboBox>(control))
    {
        return list->currentIndex() < 0 ? std::wstring() : EntryText(control, list->currentIndex());
    }
    const auto* const edit = As<QLineEdit>(control);
    return edit != nullptr ? edit->text().toStdWString() : std::wstring();
}

int QtDialog::EntryCount(int list) const
{
    const auto* const box = As<QListWidget>(list);
    return box != nullptr ? box->count() : As<QComboBox>(list)->count();
}

std::wstring QtDialog::EntryText(int list, int entry) const
{
    const auto* const box = As<QListWidget>(list);
    return (box != nullptr ? box->item(entry)->text() : As<QComboBox>(list)->itemText(entry)).toStdWString();
}

const wchar_t* QtDialog::EntryData(int list, int entry) const
{
    const auto* const box = As<QListWidget>(list);
    const QVariant data = box != nullptr ? box->item(entry)->data(Qt::UserRole) : As<QComboBox>(list)->itemData(entry);
    return static_cast<const wchar_t*>(data.value<void*>());
}

int QtDialog::SelectedEntry(int list) const
{
    const auto* const box = As<QListWidget>(list);
    return box != nullptr ? box->currentRow() : As<QComboBox>(list)->currentIndex();
}

void QtDialog::SelectEntry(int list, int entry)
{
    const int selected = entry >= 0 && entry < EntryCount(list) ? entry : NO_ENTRY;
    if (auto* const box = As<QListWidget>(list))
    {
        box->setCurrentRow(selected);
        return;
    }
    As<QComboBox>(list)->setCurrentIndex(selected);
}

void QtDialog::ClearEntries(int list)
{
    if (auto* const box = As<QListWidget>(list))
    {
        box->clear();
        return;
    }
    As<QComboBox>(list)->clear();
}

void QtDialog::InsertEntry(int list, int place, const std::wstring& text, const wchar_t* data)
{
    const QVariant value = Behind(data);
    if (auto* const box = As<QListWidget>(list))
    {
        box->insertItem(place, Q(text));
        box->item(place)->setData(Qt::UserRole, value);
        return;
    }
    // Qt selects the first entry that comes into an empty list.
    auto* const combo = As<QComboBox>(list);
    const bool none = combo->currentIndex() < 0;
    combo->insertItem(place, Q(text), value);
    if (none)
    {
        combo->setCurrentIndex(NO_ENTRY);
    }
}

bool QtDialog::IsChecked(int radio) const
{
    return As<QRadioButton>(radio)->isChecked();
}

void QtDialog::SetChecked(int radio, bool checked)
{
    auto* const button = As<QRadioButton>(radio);
    button->group()->setExclusive(false);
    button->setChecked(checked);
    button->group()->setExclusive(true);
}

TreeItem QtDialog::AddTreeItem(int tree, TreeItem parent, const std::wstring& text, void* data)
{
    auto* const widget = As<QTreeWidget>(tree);
    auto* const item = parent != nullptr ? new QTreeWidgetItem(ItemOf(parent)) : new QTreeWidgetItem(widget);
    item->setText(0, Q(text));
    item->setData(0, Qt::UserRole, Behind(data));
    return HandleOf(item);
}

void* QtDialog::TreeItemData(int tree, TreeItem item) const
{
    At(tree);
    return ItemOf(item)->data(0, Qt::UserRole).value<void*>();
}

TreeItem QtDialog::TreeParent(int tree, TreeItem item) const
{
    At(tree);
    return HandleOf(ItemOf(item)->parent());
}

TreeItem QtDialog::FirstTreeItem(int tree) const
{
    return HandleOf(As<QTreeWidget>(tree)->topLevelItem(0));
}

void QtDialog::ExpandTreeItem(int tree, TreeItem item)
{
    At(tree);
    ItemOf(item)->setExpanded(true);
}

void QtDialog::EnsureTreeItemVisible(int tree, TreeItem item)
{
    As<QTreeWidget>(tree)->scrollToItem(ItemOf(item));
}

void QtDialog::ShowMessage(const std::wstring& text)
{
    ShowMessageBox(window_, text);
}

std::optional<std::wstring> QtDialog::ChooseSaveFile(const SaveFileRequest& request)
{
    QFileDialog dialog(window_, QStringLiteral("名前を付けて保存"), QString(), QtFilter(request.filter));
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setProxyModel(new JapaneseFiles(&dialog));
    dialog.setDefaultSuffix(Q(request.defaultExtension));
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("場所:"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("ファイル名:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("ファイルの種類:"));
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("保存"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("キャンセル"));
    dialog.selectFile(Q(request.fileName));
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
    {
        const QString path = dialog.selectedFiles().first();
        if (!QFileInfo::exists(path))
        {
            return path.toStdWString();
        }
        QMessageBox question(QMessageBox::Warning, dialog.windowTitle(),
                             QFileInfo(path).fileName() + QStringLiteral("は既に存在します。上書きしますか?"),
                             QMessageBox::NoButton, window_);
        question.setTextFormat(Qt::PlainText);
        const QAbstractButton* const yes = question.addButton(QStringLiteral("はい"), QMessageBox::AcceptRole);
        question.setDefaultButton(question.addButton(QStringLiteral("いいえ"), QMessageBox::RejectRole));
        question.exec();
        if (question.clickedButton() == yes)
        {
            return path.toStdWString();
        }
    }
    return std::nullopt;
}

} // namespace jlandxml
