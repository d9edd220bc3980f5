#pragma once

namespace studio {

/**
 * The name of a command. Commands are asked for by the names below alone: one that is none does not
 * compile.
 */
class CommandId
{
public:
    constexpr explicit CommandId(const char *name) : m_name(name) {}

    /** As the objects of the actions, the tests and the settings know it. */
    constexpr operator const char *() const { return m_name; } // NOLINT: a name is text

private:
    const char *m_name;
};

namespace ids {

constexpr CommandId kFileNew{"file.new"};
constexpr CommandId kFileOpen{"file.open"};
constexpr CommandId kFileSave{"file.save"};
constexpr CommandId kFileSaveAs{"file.saveAs"};
constexpr CommandId kFileRevert{"file.revert"};
constexpr CommandId kFileRecover{"file.recover"};
constexpr CommandId kFileImport{"file.import"};
constexpr CommandId kFileImportClipboard{"file.importClipboard"};
constexpr CommandId kFileSample{"file.sample"};
constexpr CommandId kFileExportAll{"file.exportAll"};
constexpr CommandId kFileExportSelection{"file.exportSelection"};
constexpr CommandId kFilePrint{"file.print"};
constexpr CommandId kFilePdf{"file.pdf"};
constexpr CommandId kFileQuit{"file.quit"};
constexpr CommandId kFileReimport{"file.reimport"};

constexpr CommandId kJobPreview{"job.preview"};
constexpr CommandId kJobExport{"job.export"};

constexpr CommandId kEditUndo{"edit.undo"};
constexpr CommandId kEditRedo{"edit.redo"};
constexpr CommandId kEditCut{"edit.cut"};
constexpr CommandId kEditCopy{"edit.copy"};
constexpr CommandId kEditPaste{"edit.paste"};
constexpr CommandId kEditPasteInPlace{"edit.pasteInPlace"};
constexpr CommandId kEditPasteHere{"edit.pasteHere"};
constexpr CommandId kEditGroup{"edit.group"};
constexpr CommandId kEditUngroup{"edit.ungroup"};
constexpr CommandId kEditDelete{"edit.delete"};
constexpr CommandId kEditDuplicate{"edit.duplicate"};
constexpr CommandId kEditSelectAll{"edit.selectAll"};
constexpr CommandId kEditInvert{"edit.invert"};
constexpr CommandId kEditDeselect{"edit.deselect"};
constexpr CommandId kEditValues{"edit.values"};
constexpr CommandId kEditPreferences{"edit.preferences"};

constexpr CommandId kTextType{"text.type"};
constexpr CommandId kTextSettings{"text.settings"};
constexpr CommandId kTextNextPart{"text.nextPart"};
constexpr CommandId kTextShareCounter{"text.shareCounter"};

constexpr CommandId kCodeSettings{"code.settings"};

constexpr CommandId kToolsVerifyCodes{"tools.verifyCodes"};

constexpr CommandId kArrangeLeft{"arrange.left"};
constexpr CommandId kArrangeHcenter{"arrange.hcenter"};
constexpr CommandId kArrangeRight{"arrange.right"};
constexpr CommandId kArrangeTop{"arrange.top"};
constexpr CommandId kArrangeVcenter{"arrange.vcenter"};
constexpr CommandId kArrangeBottom{"arrange.bottom"};
constexpr CommandId kArrangeCenter{"arrange.center"};
constexpr CommandId kArrangeToEachOther{"arrange.toEachOther"};
constexpr CommandId kArrangeToFirst{"arrange.toFirst"};
constexpr CommandId kArrangeToField{"arrange.toField"};
constexpr CommandId kArrangeSpreadAcross{"arrange.spreadAcross"};
constexpr CommandId kArrangeSpreadDown{"arrange.spreadDown"};
constexpr CommandId kArrangeGapsAcross{"arrange.gapsAcross"};
constexpr CommandId kArrangeGapsDown{"arrange.gapsDown"};
constexpr CommandId kArrangeCentreOnField{"arrange.centreOnField"};
constexpr CommandId kArrangeMirrorFieldAcross{"arrange.mirrorFieldAcross"};
constexpr CommandId kArrangeMirrorFieldDown{"arrange.mirrorFieldDown"};
constexpr CommandId kArrangeMirrorHorizontal{"arrange.mirrorHorizontal"};
constexpr CommandId kArrangeMirrorVertical{"arrange.mirrorVertical"};
constexpr CommandId kArrangeRotateRight{"arrange.rotateRight"};
constexpr CommandId kArrangeRotateLeft{"arrange.rotateLeft"};
constexpr CommandId kArrangeRotate{"arrange.rotate"};
constexpr CommandId kArrangeMatrix{"arrange.matrix"};
constexpr CommandId kArrangeCircle{"arrange.circle"};

constexpr CommandId kViewZoomIn{"view.zoomIn"};
constexpr CommandId kViewZoomOut{"view.zoomOut"};
constexpr CommandId kViewHome{"view.home"};
constexpr CommandId kViewFitSelection{"view.fitSelection"};
constexpr CommandId kViewFitAll{"view.fitAll"};
constexpr CommandId kViewResetLayout{"view.resetLayout"};
constexpr CommandId kViewRulers{"view.rulers"};
constexpr CommandId kViewGrid{"view.grid"};
constexpr CommandId kViewOrderNumbers{"view.orderNumbers"};
constexpr CommandId kViewSnapToShapes{"view.snapToShapes"};
constexpr CommandId kViewSnapToGuides{"view.snapToGuides"};
constexpr CommandId kViewSnapToGrid{"view.snapToGrid"};
constexpr CommandId kViewRemoveGuides{"view.removeGuides"};

constexpr CommandId kOrderFirst{"order.first"};
constexpr CommandId kOrderRaise{"order.raise"};
constexpr CommandId kOrderLower{"order.lower"};
constexpr CommandId kOrderLast{"order.last"};
constexpr CommandId kOrderReverse{"order.reverse"};

constexpr CommandId kNudgeLeft{"nudge.left"};
constexpr CommandId kNudgeRight{"nudge.right"};
constexpr CommandId kNudgeUp{"nudge.up"};
constexpr CommandId kNudgeDown{"nudge.down"};
constexpr CommandId kNudgeFarLeft{"nudge.farLeft"};
constexpr CommandId kNudgeFarRight{"nudge.farRight"};
constexpr CommandId kNudgeFarUp{"nudge.farUp"};
constexpr CommandId kNudgeFarDown{"nudge.farDown"};
constexpr CommandId kNudgeFineLeft{"nudge.fineLeft"};
constexpr CommandId kNudgeFineRight{"nudge.fineRight"};
constexpr CommandId kNudgeFineUp{"nudge.fineUp"};
constexpr CommandId kNudgeFineDown{"nudge.fineDown"};

constexpr CommandId kHelpManual{"help.manual"};
constexpr CommandId kHelpDocumentation{"help.documentation"};
constexpr CommandId kHelpShortcuts{"help.shortcuts"};
constexpr CommandId kHelpAbout{"help.about"};

constexpr CommandId kPathsToPaths{"paths.toPaths"};
constexpr CommandId kPathsUnion{"paths.union"};
constexpr CommandId kPathsDifference{"paths.difference"};
constexpr CommandId kPathsIntersection{"paths.intersection"};
constexpr CommandId kPathsExclusion{"paths.exclusion"};
constexpr CommandId kPathsOffset{"paths.offset"};
constexpr CommandId kPathsCombine{"paths.combine"};
constexpr CommandId kPathsBreakApart{"paths.breakApart"};
constexpr CommandId kPathsClean{"paths.clean"};
constexpr CommandId kPathsWeld{"paths.weld"};

constexpr CommandId kNodesAdd{"nodes.add"};
constexpr CommandId kNodesDelete{"nodes.delete"};
constexpr CommandId kNodesBreak{"nodes.break"};
constexpr CommandId kNodesJoin{"nodes.join"};
constexpr CommandId kNodesLine{"nodes.line"};
constexpr CommandId kNodesCurve{"nodes.curve"};
constexpr CommandId kNodesSmooth{"nodes.smooth"};
constexpr CommandId kNodesCorner{"nodes.corner"};

constexpr CommandId kToolSelect{"tool.select"};
constexpr CommandId kToolRectangle{"tool.rectangle"};
constexpr CommandId kToolEllipse{"tool.ellipse"};
constexpr CommandId kToolPolygon{"tool.polygon"};
constexpr CommandId kToolLine{"tool.line"};
constexpr CommandId kToolTdot{"tool.tdot"};
constexpr CommandId kToolText{"tool.text"};
constexpr CommandId kToolCode{"tool.code"};
constexpr CommandId kToolBarcode{"tool.barcode"};
constexpr CommandId kToolNodes{"tool.nodes"};
constexpr CommandId kToolPolyline{"tool.polyline"};
constexpr CommandId kToolCurve{"tool.curve"};
constexpr CommandId kToolMeasure{"tool.measure"};

constexpr CommandId kCreateRectangle{"create.rectangle"};
constexpr CommandId kCreateEllipse{"create.ellipse"};
constexpr CommandId kCreatePolygon{"create.polygon"};
constexpr CommandId kCreateLine{"create.line"};
constexpr CommandId kCreateTdot{"create.tdot"};
constexpr CommandId kCreateText{"create.text"};
constexpr CommandId kCreateCode{"create.code"};
constexpr CommandId kCreateBarcode{"create.barcode"};

} // namespace ids

} // namespace studio
