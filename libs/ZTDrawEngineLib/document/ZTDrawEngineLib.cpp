#include <ZTDrawEngineLib/document/ZTDrawEngineLib.h>

ZTDrawEngineLib::ZTDrawEngineLib() = default;
