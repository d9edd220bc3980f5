#pragma once

#include <hostkit/marks/MarkGraphWriter.h>
#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

/**
 * One writer a form. Each writes piece by piece: memory does not grow with the graph.
 *
 * Failure: a writer goes on to its end on a device that fails; the device tells. Only the PNG
 * writer knows failures of its own and returns them.
 */
namespace hostkit {

void writeMarkSvg(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device,
                  const MarkPictureLook &look = {});
void writeMarkJson(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device);
void writeMarkCsv(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device);
bool writeMarkPng(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device,
                  const MarkPictureLook &look = {});

} // namespace hostkit
