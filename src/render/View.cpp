#include "render/View.h"

#include "tree/Tree.h"

namespace orvex::render
{

View::View() : _settings(new DisplaySettings), _camera(new CameraCladogram) {}

View::~View() noexcept(false) = default;

} // namespace orvex::render
