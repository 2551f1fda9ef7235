#include "ui/forms/history_form.h"

#include <QListWidget>
#include <QVBoxLayout>

namespace tarnvik {

namespace {

QString Line_Of(const HistoryList::Row& row) {
    const QString name = QString::fromStdString(row.Name);
    return row.Time.empty() ? name : QString::fromStdString(row.Time) + "   " + name;
}

}  // namespace

HistoryForm::HistoryForm(Session& session, QtDisplay&) : Logic(session) {
    List = new QListWidget;
    List->setObjectName("Edits");
    List->setUniformItemSizes(true);
    List->setToolTip(tr("Click an edit to go back or forward to it"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(List);
    // Room for the usual names of edits beside their time.
    List->setMinimumWidth(fontMetrics().horizontalAdvance("00:00:00   Move pick of shot 100, receiver 100") +
                          2 * List->frameWidth() + 24);
    const auto walk = [this](const QListWidgetItem* item) {
        const int row = List->row(item);
        if (row >= 0) Logic.Go_To(static_cast<std::size_t>(row));
    };
    connect(List, &QListWidget::itemClicked, this, walk);
    connect(List, &QListWidget::itemActivated, this, walk);
}

void HistoryForm::Refresh() {
    const std::vector<HistoryList::Row> rows = Logic.Rows();
    const auto count = static_cast<int>(rows.size());
    while (List->count() > count)
        delete List->takeItem(List->count() - 1);
    const QBrush plain = List->palette().brush(QPalette::Text);
    const QBrush grey = List->palette().brush(QPalette::PlaceholderText);
    for (int row = 0; row < count; ++row) {
        if (row == List->count()) List->addItem(QString());
        const HistoryList::Row& shown = rows[static_cast<std::size_t>(row)];
        QListWidgetItem* item = List->item(row);
        const QString line = Line_Of(shown);
        if (item->text() != line) item->setText(line);
        const QBrush& brush = shown.Done ? plain : grey;
        if (item->foreground() != brush) item->setForeground(brush);
    }
    const auto current = static_cast<int>(Logic.Current());
    if (List->currentRow() == current) return;
    List->setCurrentRow(current);
    List->scrollToItem(List->item(current));
}

}  // namespace tarnvik
