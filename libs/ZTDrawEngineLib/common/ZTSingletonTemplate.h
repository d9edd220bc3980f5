#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

/**
 * One instance of `T` per process, made on first use and living until `release()`.
 *
 * A class `T` derives from `ZTSingletonTemplate<T>`, keeps its constructor and destructor private
 * and names the template as a friend. Library and host see the same instance: the template's
 * instances are visible across modules.
 *
 * Order: GUI thread only; the first `getInstance()` is not guarded against a concurrent one.
 */
template <class T>
class ZTDRAWENGINELIB_TEMPLATE_EXPORT ZTSingletonTemplate
{
public:
    ZTSingletonTemplate(const ZTSingletonTemplate &) = delete;
    ZTSingletonTemplate &operator=(const ZTSingletonTemplate &) = delete;

    /**
     * The sole instance, created with default values if there is none.
     *
     * Owner: the template. Do not keep the pointer: `release()` ends it, and the next call makes a
     * new instance with default values.
     */
    static T *getInstance();

    /** Deletes the instance, if there is one. Harmless when called again. */
    static void release();

    static T *s_this; ///< the instance or null; read it through `getInstance()`

protected:
    ZTSingletonTemplate() = default;
    ~ZTSingletonTemplate() = default;
};

template <class T>
T *ZTSingletonTemplate<T>::s_this = nullptr;

template <class T>
T *ZTSingletonTemplate<T>::getInstance()
{
    if (s_this == nullptr)
        s_this = new T;
    return s_this;
}

template <class T>
void ZTSingletonTemplate<T>::release()
{
    delete s_this;
    s_this = nullptr;
}
