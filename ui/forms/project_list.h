#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "app/recent_projects.h"

class QTreeWidget;

namespace tarnvik {

/// List of projects that can be opened, each with a small picture of its travel times, its name, size, folder
/// and the time of its last change. A click, or Return, opens.
class ProjectList : public QWidget {
    Q_OBJECT

  public:
    /// Told which project of a group was chosen.
    using Chosen = std::function<void(std::size_t place)>;

    explicit ProjectList(QWidget* parent = nullptr);
    /// One group under a heading; an empty one is not shown.
    void Add_Group(const QString& heading, const std::vector<ProjectGlimpse>& projects, Chosen chosen);
    bool Has_Projects() const;
    QSize sizeHint() const override { return {430, 400}; }

  private:
    QTreeWidget* List = nullptr;
    std::vector<Chosen> Answers;
};

}  // namespace tarnvik
