#pragma once

#include <QLayout>
#include <QList>

namespace tarnvik {

/// Puts its items side by side and goes on below where the width ends, as words of a text. Items of one line
/// get the height of the tallest.
class FlowLayout : public QLayout {
  public:
    explicit FlowLayout(QWidget* parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(Items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& place) override;

  private:
    int Arrange(const QRect& place, bool apply) const;
    QList<QLayoutItem*> Items;
};

}  // namespace tarnvik
