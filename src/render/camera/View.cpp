#include "render/camera/View.h"

#include "tree/model/Tree.h"

namespace orvex::render
{

View::View() : _settings(new DisplaySettings), _camera(new CameraCladogram) {}

View::~View() noexcept(false) = default;

} // namespace orvex::render
