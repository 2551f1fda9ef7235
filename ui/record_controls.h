#pragma once

#include <QWidget>

#include "ui/field_binder.h"

class QBoxLayout;
class QCheckBox;
class QLineEdit;

namespace tarnvik {

class Session;

/// What stands above the field record, in one row: the commands, and behind two buttons the record with its
/// stations and the way of drawing. Goes on in a second line where the window is narrow.
class RecordControls : public QWidget {
    Q_OBJECT

  public:
    explicit RecordControls(Session& session);
    void Refresh() { Fields.Refresh(); }

    /// Runs a command of the page as its button would; nothing while it is refused.
    void Run(const char* name);

  private:
    /// The button of a command of the page; while it is refused its tooltip tells why.
    void Button(QBoxLayout* row, const char* name);
    template <class Number>
    QLineEdit* Number_Field(const char* name, const QString& tooltip, Number& field,
                            FieldBinder::Reaction finished);
    QCheckBox* Tick(const char* name, const QString& caption, const QString& tooltip, bool& field,
                    FieldBinder::Reaction changed = {});
    QWidget* Record_Commands();
    QWidget* Zoom_Commands();
    QWidget* Size_Commands();
    QWidget* Pick_Commands();
    QWidget* Pane_Buttons();
    void Record_Pane(QWidget* pane);
    void Display_Pane(QWidget* pane);
    QComboBox* Shift_List();
    bool Has_Record() const;
    void Redraw();

    Session& Program;
    std::string TraceShift = "0";  ///< Combo6, ms
    FieldBinder Fields;
};

}  // namespace tarnvik
