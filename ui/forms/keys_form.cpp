#include "ui/forms/keys_form.h"

#include <QHeaderView>
#include <QKeySequence>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/documents.h"
#include "app/key_list.h"
#include "app/session.h"

namespace tarnvik {

namespace {

/// Key texts as the desktop writes them; several stand behind each other. A gesture is no key and stays.
QString Shown_Keys(const std::string& keys) {
    QStringList shown;
    for (const QString& text : QString::fromStdString(keys).split("; ")) {
        const QKeySequence sequence(text, QKeySequence::PortableText);
        const bool is_key = !sequence.isEmpty() && sequence[0].key() != Qt::Key_unknown;
        shown << (is_key ? sequence.toString(QKeySequence::NativeText) : text);
    }
    return shown.join(", ");
}

void Show_Matching(QTreeWidget& list, const QString& words) {
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        QTreeWidgetItem* place = list.topLevelItem(i);
        bool any = false;
        for (int row = 0; row < place->childCount(); ++row) {
            QTreeWidgetItem* item = place->child(row);
            const bool shown = item->text(0).contains(words, Qt::CaseInsensitive) ||
                               item->text(1).contains(words, Qt::CaseInsensitive);
            item->setHidden(!shown);
            any |= shown;
        }
        place->setHidden(!any);
    }
}

}  // namespace

KeysForm::KeysForm(Session& session, QtDisplay&) {
    auto* find = new QLineEdit;
    find->setObjectName("FindKey");
    find->setPlaceholderText(tr("Find a key or what it does"));
    find->setClearButtonEnabled(true);
    auto* list = new QTreeWidget;
    list->setObjectName("Keys");
    list->setColumnCount(2);
    list->setHeaderLabels({tr("Key"), tr("What it does")});
    list->setRootIsDecorated(false);
    list->setItemsExpandable(false);
    list->setUniformRowHeights(true);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    QTreeWidgetItem* place = nullptr;
    for (const KeyRow& row : Key_List()) {
        const QString name = QString::fromStdString(row.Place);
        if (place == nullptr || place->text(0) != name) {
            place = new QTreeWidgetItem(list, {name});
            QFont bold = list->font();
            bold.setBold(true);
            place->setFont(0, bold);
            place->setFirstColumnSpanned(true);
        }
        new QTreeWidgetItem(place, {Shown_Keys(row.Keys), QString::fromStdString(row.Meaning)});
    }
    list->expandAll();
    list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    list->header()->setStretchLastSection(true);
    auto* manual = new QPushButton(tr("Help file"));
    manual->setObjectName("Manual");
    auto* below = new QHBoxLayout;
    below->addWidget(manual);
    below->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(find);
    layout->addWidget(list, 1);
    layout->addLayout(below);
    connect(find, &QLineEdit::textChanged, list,
            [list](const QString& words) { Show_Matching(*list, words); });
    Fields.Command(manual, [&session] { Open_Manual(session); });
}

}  // namespace tarnvik
