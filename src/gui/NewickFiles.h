#pragma once

#include "gui/qt/FileDialog.h"

#include <string>

class QDropEvent;

namespace Lumbra
{

/// What a dialog offers for Newick files.
Tools::Qt::FileDialog::Filters newickFilters();

/// Accepts the drag of a Newick file from another program, or the end of it.
/// \return its name in the file system's encoding; empty if nothing is accepted: what is dragged is
///         no file of this machine, no Newick file by its name, or not alone; or a dialog is open,
///         which goes on with the tree that is shown
std::string acceptNewickFile(QDropEvent& event);

} // namespace Lumbra
