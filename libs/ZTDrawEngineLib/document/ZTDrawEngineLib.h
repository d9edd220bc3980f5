#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

/** Marker of the library for hosts that look a class up by the library's name. No behaviour. */
class ZTDRAWENGINELIB_EXPORT ZTDrawEngineLib
{
public:
    ZTDrawEngineLib();
};
