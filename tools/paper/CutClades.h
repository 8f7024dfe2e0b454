#pragma once

#include "render/gl/scene/Visitor.h"

#include <vector>

namespace orvex::paper
{

/// Finds the inner nodes whose line along a column crosses a row of the layout.
class CutClades : public render::gl::Visitor
{
public:
  struct Clade
  {
    int node;
    /// In world units.
    double x, lowest, highest;
  };

  /// \param row  in world units
  explicit CutClades(double row) : _row(row) {}

  using Visitor::visit;
  void visit(render::gl::RenderNode& node) override;

  /// In no order.
  const std::vector<Clade>& found() const { return _found; }

private:
  double _row;
  std::vector<Clade> _found;
};

} // namespace orvex::paper
