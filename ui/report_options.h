#pragma once

class QWidget;

namespace tarnvik {

class FieldBinder;
class Session;

/// The choices of a report's page, tied to Session::Report by a binder that must outlive the widget.
QWidget* Report_Options(Session& session, FieldBinder& fields);

}  // namespace tarnvik
