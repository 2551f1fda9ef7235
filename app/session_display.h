#pragma once

#include <set>
#include <utility>
#include <vector>

#include "core/ports/display.h"

namespace tarnvik {

class Session;

/// The part of the Display port that is the same with and without windows: a redraw that is asked for is done
/// by the session's routine, and inside an edit only when it ends. Attach comes before the first request.
class SessionDisplay : public Display {
  public:
    void Attach(Session& session) { Owner = &session; }

    void Show_Curves() override { Ask(Request::Curves); }
    void Display_Record() override { Ask(Request::Record); }
    void Show_Profile() override { Ask(Request::Profile); }
    void Repaint_Page(Page page) override;
    void Show_Grids() override { Ask(Request::Grids); }
    void Show_Fields() override { Ask(Request::Fields); }
    void Show_Cell(int row, int column) override;
    void Hold_Redraws() override { ++Held; }
    void Release_Redraws() override;

  protected:
    /// What is done for a request.
    virtual void Draw_Curves();
    virtual void Draw_Record();
    virtual void Draw_Profile();
    virtual void Refresh_Grids() {}
    virtual void Refresh_Fields() {}
    virtual void Refresh_Cell(int row, int column);

    Session* Owner = nullptr;

  private:
    enum class Request { Curves, Record, Profile, PaintCurves, Section, Grids, Fields };
    void Paint_Curves();
    void Paint_Section();
    void Show_Grm();
    void Ask(Request request);
    void Do(Request request);
    /// The drawings that wait; false when there were none.
    bool Do_Drawings();
    static bool Has(const std::vector<Request>& requests, Request request);
    bool Waiting() const;

    int Held = 0;
    /// In the order of the last time each was asked for; drawings before grids and fields.
    std::vector<Request> Wanted;
    std::set<std::pair<int, int>> WantedCells;
};

}  // namespace tarnvik
