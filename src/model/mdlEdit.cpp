#include "model/mdlEdit.h"

namespace editor {

LevelModel mdlEdit;

} // namespace editor
