#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>
#include <functional>
#include <string>

#include "ui/field_binder.h"

class QBoxLayout;
class QCheckBox;
class QLineEdit;
class QToolButton;

namespace tarnvik {

class Session;

/// What stands above the field record: the commands, the record and its stations, and the way of drawing.
/// Goes on in a second line where the window is narrow.
class RecordControls : public QWidget {
    Q_OBJECT

  public:
    explicit RecordControls(Session& session);
    void Refresh() { Fields.Refresh(); }

    /// Record before (-1) or behind (1) the one shown.
    void Show_Neighbour(int step);
    void Enlarge_Traces();
    void Reduce_Traces();

  private:
    struct Look {
        const char* Name = "";
        QString Icon{};
        QString Text{};
        QString Tooltip{};
        QList<QKeySequence> Keys{};  ///< act wherever the focus is, as long as the record is in sight
    };
    QToolButton* Button(QBoxLayout* row, const Look& look, FieldBinder::Reaction run);
    QLineEdit* Number_Field(const char* name, const QString& tooltip, std::string& field,
                            FieldBinder::Reaction finished);
    QCheckBox* Tick(const char* name, const QString& caption, const QString& tooltip, bool& field,
                    bool redraw);
    QWidget* Record_Commands();
    QWidget* Zoom_Commands();
    QWidget* Size_Commands();
    QWidget* Pick_Commands();
    QWidget* Record_Group();
    QWidget* Display_Group();
    bool Has_Record() const;
    void Redraw();

    Session& Program;
    FieldBinder Fields;
};

}  // namespace tarnvik
