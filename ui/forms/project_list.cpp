#include "ui/forms/project_list.h"

#include <QHeaderView>
#include <QIcon>
#include <QPainter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/painting/painter_picture.h"

namespace tarnvik {

namespace {

constexpr QSize picture_size{96, 54};
constexpr int picture_margin = 4;
constexpr int group_role = Qt::UserRole;
constexpr int place_role = Qt::UserRole + 1;

QPixmap Small_Picture(const ProjectGlimpse& project, double density) {
    QPixmap picture((QSizeF(picture_size) * density).toSize());
    picture.setDevicePixelRatio(density);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0xC0, 0xC0, 0xC0));
    painter.drawRect(QRectF(0.5, 0.5, picture_size.width() - 1, picture_size.height() - 1));
    const QRectF room = QRectF(QPointF(), picture_size)
                            .adjusted(picture_margin, picture_margin, -picture_margin, -picture_margin);
    for (const ProjectGlimpse::Curve& curve : project.Curves) {
        QPolygonF line;
        for (const auto& place : curve.Points)
            line << QPointF(room.left() + place.X * room.width(), room.bottom() - place.Y * room.height());
        painter.setPen(To_QColor(curve.InColour));
        painter.drawPolyline(line);
    }
    return picture;
}

}  // namespace

ProjectList::ProjectList(QWidget* parent) : QWidget(parent), List(new QTreeWidget) {
    List->setObjectName("Projects");
    List->setColumnCount(1);
    List->header()->hide();
    List->setRootIsDecorated(false);
    List->setItemsExpandable(false);
    List->setIndentation(0);
    List->setIconSize(picture_size);
    List->setFrameShape(QFrame::NoFrame);
    List->setTextElideMode(Qt::ElideMiddle);
    List->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(List);
    const auto open = [this](const QTreeWidgetItem* item) {
        const QVariant group = item->data(0, group_role);
        if (!group.isValid()) return;
        Answers[group.toUInt()](item->data(0, place_role).toUInt());
    };
    connect(List, &QTreeWidget::itemClicked, this, open);
    connect(List, &QTreeWidget::itemActivated, this, open);
}

void ProjectList::Add_Group(const QString& heading, const std::vector<ProjectGlimpse>& projects,
                            Chosen chosen) {
    if (projects.empty()) return;
    auto* head = new QTreeWidgetItem(List, {heading});
    QFont bold = font();
    bold.setBold(true);
    head->setFont(0, bold);
    head->setFlags(Qt::ItemIsEnabled);
    const auto group = static_cast<unsigned>(Answers.size());
    Answers.push_back(std::move(chosen));
    for (std::size_t place = 0; place < projects.size(); ++place) {
        const ProjectGlimpse& project = projects[place];
        const QString name = QString::fromStdString(project.Name);
        const QString folder = QString::fromStdString(project.Folder);
        auto* item = new QTreeWidgetItem(List);
        item->setText(0, name + "   " + QString::fromStdString(project.Size) + '\n' +
                             QString::fromStdString(project.Changed) + '\n' +
                             fontMetrics().elidedText(folder, Qt::ElideMiddle, 280));
        item->setToolTip(0, QString::fromStdString(project.Path));
        item->setIcon(0, QIcon(Small_Picture(project, devicePixelRatioF())));
        item->setData(0, group_role, group);
        item->setData(0, place_role, static_cast<unsigned>(place));
    }
}

bool ProjectList::Has_Projects() const {
    return !Answers.empty();
}

}  // namespace tarnvik
