#include "ui/forms/splash_form.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "app/commands.h"
#include "ui/forms/project_list.h"
#include "ui/icon_family.h"

namespace tarnvik {

namespace {

/// The product's name with its shadow behind it.
class ShadowTitle : public QWidget {
  public:
    explicit ShadowTitle(const QString& title) {
        lblProductName2 = new QLabel(title, this);
        lblProductName = new QLabel(title, this);
        lblProductName2->setObjectName("lblProductName2");
        lblProductName->setObjectName("lblProductName");
        QFont large = font();
        large.setPointSizeF(large.pointSizeF() * 2.1);
        large.setBold(true);
        lblProductName->setFont(large);
        lblProductName2->setFont(large);
        QPalette shade = palette();
        shade.setColor(QPalette::WindowText, QColor(0xd9, 0x82, 0x2b));
        lblProductName2->setPalette(shade);
        const QSize size = lblProductName->sizeHint();
        lblProductName->setGeometry(QRect({0, shadow_up}, size));
        lblProductName2->setGeometry(QRect({shadow_right, 0}, size));
        setFixedSize(size + QSize(shadow_right, shadow_up));
    }

  private:
    static constexpr int shadow_right = 2;
    static constexpr int shadow_up = 2;
    QLabel* lblProductName = nullptr;
    QLabel* lblProductName2 = nullptr;
};

}  // namespace

SplashForm::SplashForm(Session& session, QtDisplay&) : Logic(std::make_shared<frmSplash>(session)) {
    Logic->Load();
    auto* version = new QLabel(QString::fromStdString(Logic->lblVersion));
    version->setObjectName("lblVersion");
    auto* subject = new QLabel(tr("Seismic refraction interpretation"));

    auto* side = new QVBoxLayout;
    side->setContentsMargins(20, 18, 20, 18);
    side->setSpacing(8);
    side->addWidget(new ShadowTitle(QString::fromStdString(Logic->lblProductName)));
    side->addWidget(subject);
    side->addWidget(version);
    side->addStretch(1);

    struct Button {
        const char* Name;
        QString Caption;
        const char* Icon;
        bool (frmSplash::*Command)();
    };
    const QFontMetrics metrics(font());
    const QString last = QString::fromStdString(Logic->Command5Caption);
    const Button buttons[] = {
        {"Command1", "Start a new profile", "tv4", &frmSplash::Command1},
        {"Command2", "Read a travel time TV5 file", "open", &frmSplash::Command2},
        {"Command3", "Start Tarnvik", "record", &frmSplash::Command3},
        {"Command4", "Read User Manual", "help", &frmSplash::Command4},
        {"Command5", metrics.elidedText(last, Qt::ElideMiddle, 250), "dromo", &frmSplash::Command5},
        {"Command6", QString::fromStdString(Logic->Command6Caption), "stop", nullptr},
    };
    for (const Button& entry : buttons) {
        auto* button = new QPushButton(Family_Icon(entry.Icon), entry.Caption);
        button->setObjectName(entry.Name);
        button->setIconSize({22, 22});
        button->setMinimumSize(310, 38);
        button->setStyleSheet("text-align: left; padding-left: 12px;");
        if (entry.Command == nullptr) {
            side->addSpacing(8);
            // The question comes over the dialog; a No leaves it open.
            Fields.Command(button, [this] {
                if (Logic->Command6() && Close_Me) Close_Me();
            });
        } else {
            Fields.Command(button, [this, command = entry.Command] {
                Run_After_Closing([command](frmSplash& logic) { (logic.*command)(); });
            });
        }
        if (entry.Command == &frmSplash::Command1) {
            const Command* new_profile = Find_Command("tv4");
            button->setEnabled(new_profile != nullptr && new_profile->Available());
        }
        if (entry.Command == &frmSplash::Command5) {
            button->setToolTip(last);
            button->setEnabled(Logic->HasLastFile);
        }
        side->addWidget(button);
    }
    auto* across = new QHBoxLayout(this);
    across->setContentsMargins(0, 0, 0, 0);
    across->setSpacing(0);
    auto* projects = new ProjectList;
    projects->Add_Group(tr("Recent projects"), Logic->Recent, [this](std::size_t place) {
        Run_After_Closing([place](frmSplash& logic) { logic.Open_Recent(place); });
    });
    projects->Add_Group(tr("Demo lines"), Logic->Demos, [this](std::size_t place) {
        Run_After_Closing([place](frmSplash& logic) { logic.Open_Demo(place); });
    });
    auto* left = new QVBoxLayout;
    left->setSpacing(0);
    auto* sketch = new RefractionSketch;
    left->addWidget(sketch, 1);
    if (projects->Has_Projects()) {
        left->addWidget(projects, 2);
    } else {
        delete projects;
    }
    across->addLayout(left, 1);
    across->addLayout(side);
}

void SplashForm::Run_After_Closing(std::function<void(frmSplash&)> command) {
    // The dialog is gone before file dialogs and pictures come; the command outlives it.
    QTimer::singleShot(0, qApp, [logic = Logic, command = std::move(command)] { command(*logic); });
    if (Close_Me) Close_Me();
}

}  // namespace tarnvik
