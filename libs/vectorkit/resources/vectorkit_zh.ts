<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>vectorkit</name>
    <message>
        <source>%1 of %2 commands are damaged or unknown.</source>
        <translation>%2 条命令中有 %1 条损坏或未知。</translation>
    </message>
    <message>
        <source>A plotter&apos;s unit is 0.025 mm.</source>
        <translation>绘图仪单位为 0.025 mm。</translation>
    </message>
    <message>
        <source>Choose HP-GL in the program or driver that writes the file.</source>
        <translation>请在生成该文件的程序或驱动中选择 HP-GL。</translation>
    </message>
    <message>
        <source>Drawings are read as HP-GL, SVG and DXF.</source>
        <translation>可读取 HP-GL、SVG 和 DXF 图形。</translation>
    </message>
    <message>
        <source>Its sizes are in pixels, of which %1 takes 72 for an inch.</source>
        <translation>其尺寸以像素为单位，%1 按每英寸 72 像素计。</translation>
    </message>
    <message>
        <source>Its sizes are in pixels, of which %1 took 90 for an inch.</source>
        <translation>其尺寸以像素为单位，%1 按每英寸 90 像素计。</translation>
    </message>
    <message>
        <source>Its sizes are in pixels, of which 96 make an inch.</source>
        <translation>其尺寸以像素为单位，每英寸 96 像素。</translation>
    </message>
    <message>
        <source>More than %1 elements stand in one another.</source>
        <translation>元素嵌套超过 %1 层。</translation>
    </message>
    <message>
        <source>Open it in a drawing program and save it as SVG.</source>
        <translation>请在绘图程序中打开，另存为 SVG。</translation>
    </message>
    <message>
        <source>Open it in the program it comes from and save it as SVG or DXF.</source>
        <translation>请在原程序中打开，另存为 SVG 或 DXF。</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>第 %1 页</translation>
    </message>
    <message>
        <source>Pixels have no outlines: trace it in a drawing program and save that as SVG.</source>
        <translation>像素没有轮廓：请在绘图程序中描摹，再保存为 SVG。</translation>
    </message>
    <message>
        <source>Plot the layer as DXF, SVG or HP-GL in the board program.</source>
        <translation>请在电路板程序中将该层输出为 DXF、SVG 或 HP-GL。</translation>
    </message>
    <message>
        <source>Reading was cancelled.</source>
        <translation>读取已取消。</translation>
    </message>
    <message>
        <source>Save it again with the program that wrote it.</source>
        <translation>请用生成它的程序重新保存。</translation>
    </message>
    <message>
        <source>Save it as DXF in the program it comes from.</source>
        <translation>请在原程序中另存为 DXF。</translation>
    </message>
    <message>
        <source>Save it as SVG.</source>
        <translation>请另存为 SVG。</translation>
    </message>
    <message>
        <source>Take it apart with the program that wrote it.</source>
        <translation>请用生成它的程序将其拆分。</translation>
    </message>
    <message>
        <source>Take the drawing it was made from.</source>
        <translation>请使用生成它的图形。</translation>
    </message>
    <message>
        <source>Take the drawing itself: SVG, DXF or HP-GL.</source>
        <translation>请使用图形本身：SVG、DXF 或 HP-GL。</translation>
    </message>
    <message>
        <source>The drawing has more than %1 lines, the limit.</source>
        <translation>图形的线段数超过上限 %1。</translation>
    </message>
    <message>
        <source>The drawing holds no shapes and no texts.</source>
        <translation>图形中没有任何形状和文字。</translation>
    </message>
    <message>
        <source>The drawing is larger than can be read.</source>
        <translation>图形过大，无法读取。</translation>
    </message>
    <message>
        <source>The drawing is scaled to the plotter&apos;s sheet, which the file does not name; A4 is taken.</source>
        <translation>图形按绘图仪图纸缩放，文件未说明图纸大小，按 A4 处理。</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>无法读取文件：%1</translation>
    </message>
    <message>
        <source>The file draws nothing.</source>
        <translation>文件中没有绘制内容。</translation>
    </message>
    <message>
        <source>The file gives its size: %1 × %2 mm.</source>
        <translation>文件给出了尺寸：%1 × %2 mm。</translation>
    </message>
    <message>
        <source>The file gives no size. %1</source>
        <translation>文件没有给出尺寸。%1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>文件为空。</translation>
    </message>
    <message>
        <source>The file is larger than %1 MiB, the limit.</source>
        <translation>文件超过上限 %1 MiB。</translation>
    </message>
    <message>
        <source>The plotter&apos;s unit was chosen as %1 mm.</source>
        <translation>绘图仪单位选定为 %1 mm。</translation>
    </message>
    <message>
        <source>The unit was chosen: %1 mm.</source>
        <translation>单位由用户选定：%1 mm。</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>This XML file is no SVG drawing.</source>
        <translation>此 XML 文件不是 SVG 图形。</translation>
    </message>
    <message>
        <source>This is DMPL, the language of other plotters.</source>
        <translation>这是 DMPL，另一类绘图仪的语言。</translation>
    </message>
    <message>
        <source>This is G-code, the program of a machine.</source>
        <translation>这是 G 代码，即机床程序。</translation>
    </message>
    <message>
        <source>This is PostScript (PS or EPS).</source>
        <translation>这是 PostScript（PS 或 EPS）。</translation>
    </message>
    <message>
        <source>This is XML or HTML, but no SVG drawing.</source>
        <translation>这是 XML 或 HTML，但不是 SVG 图形。</translation>
    </message>
    <message>
        <source>This is a CDR drawing.</source>
        <translation>这是 CDR 图形。</translation>
    </message>
    <message>
        <source>This is a DWG drawing.</source>
        <translation>这是 DWG 图形。</translation>
    </message>
    <message>
        <source>This is a GIF picture.</source>
        <translation>这是 GIF 图片。</translation>
    </message>
    <message>
        <source>This is a Gerber file of a circuit board.</source>
        <translation>这是电路板的 Gerber 文件。</translation>
    </message>
    <message>
        <source>This is a JPEG picture.</source>
        <translation>这是 JPEG 图片。</translation>
    </message>
    <message>
        <source>This is a PDF document.</source>
        <translation>这是 PDF 文档。</translation>
    </message>
    <message>
        <source>This is a PDF from Illustrator.</source>
        <translation>这是 Illustrator 生成的 PDF。</translation>
    </message>
    <message>
        <source>This is a PNG picture.</source>
        <translation>这是 PNG 图片。</translation>
    </message>
    <message>
        <source>This is a TIFF picture.</source>
        <translation>这是 TIFF 图片。</translation>
    </message>
    <message>
        <source>This is a WebP picture.</source>
        <translation>这是 WebP 图片。</translation>
    </message>
    <message>
        <source>This is a ZIP archive.</source>
        <translation>这是 ZIP 压缩包。</translation>
    </message>
    <message>
        <source>This is no file that holds data.</source>
        <translation>这不是含有数据的文件。</translation>
    </message>
    <message>
        <source>This is none of the drawings that can be read.</source>
        <translation>这不是可读取的图形。</translation>
    </message>
    <message>
        <source>Unpack it and take the drawing that is inside.</source>
        <translation>请先解压，再使用其中的图形。</translation>
    </message>
    <message>
        <source>Write the file anew as HP-GL.</source>
        <translation>请重新输出为 HP-GL 文件。</translation>
    </message>
    <message>
        <source>animations</source>
        <translation>动画</translation>
    </message>
    <message>
        <source>bold or italic letters: taken as plain ones</source>
        <translation>粗体或斜体字母：按普通字母导入</translation>
    </message>
    <message>
        <source>byte %1</source>
        <translation>字节 %1</translation>
    </message>
    <message>
        <source>clip paths of relative size, shown without them</source>
        <translation>相对尺寸的剪切路径，按无剪切显示</translation>
    </message>
    <message>
        <source>clip paths that are not known, shown without them</source>
        <translation>未知的剪切路径，按无剪切显示</translation>
    </message>
    <message>
        <source>clip paths within clip paths</source>
        <translation>剪切路径中的剪切路径</translation>
    </message>
    <message>
        <source>command %1</source>
        <translation>命令 %1</translation>
    </message>
    <message>
        <source>content of other formats</source>
        <translation>其他格式的内容</translation>
    </message>
    <message>
        <source>dashed lines, drawn through</source>
        <translation>虚线，按实线绘制</translation>
    </message>
    <message>
        <source>drawn although the pen was put away (SP0)</source>
        <translation>收笔（SP0）后仍绘制的内容</translation>
    </message>
    <message>
        <source>element &quot;%1&quot;</source>
        <translation>元素“%1”</translation>
    </message>
    <message>
        <source>elements that show themselves</source>
        <translation>引用自身的元素</translation>
    </message>
    <message>
        <source>elements that stand too deep in one another</source>
        <translation>嵌套过深的元素</translation>
    </message>
    <message>
        <source>filters, shown without them</source>
        <translation>滤镜，按无滤镜显示</translation>
    </message>
    <message>
        <source>flowed text, its lines not broken</source>
        <translation>流式文字，不自动换行</translation>
    </message>
    <message>
        <source>gradients, in their first colour</source>
        <translation>渐变，取其首个颜色</translation>
    </message>
    <message>
        <source>hidden elements</source>
        <translation>隐藏的元素</translation>
    </message>
    <message>
        <source>hidden layer &quot;%1&quot;</source>
        <translation>隐藏图层“%1”</translation>
    </message>
    <message>
        <source>labels without their end</source>
        <translation>缺少结束符的标注</translation>
    </message>
    <message>
        <source>lengths that are no numbers</source>
        <translation>不是数字的长度</translation>
    </message>
    <message>
        <source>letters placed one by one, now evenly</source>
        <translation>逐个定位的字母，改为均匀排列</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>第 %1 行</translation>
    </message>
    <message>
        <source>line types, drawn solid (LT)</source>
        <translation>线型按实线绘制（LT）</translation>
    </message>
    <message>
        <source>lines of no width, kept as thin ones</source>
        <translation>零宽度线条，按细线保留</translation>
    </message>
    <message>
        <source>lines of text in several fonts: taken in their first</source>
        <translation>含多种字体的文字行：按第一种字体导入</translation>
    </message>
    <message>
        <source>markers on lines</source>
        <translation>线条上的标记</translation>
    </message>
    <message>
        <source>masks, shown without them</source>
        <translation>蒙版，按无蒙版显示</translation>
    </message>
    <message>
        <source>numbers of command %1</source>
        <translation>命令 %1 的数值</translation>
    </message>
    <message>
        <source>packed lines without their end</source>
        <translation>缺少结束符的压缩折线</translation>
    </message>
    <message>
        <source>packed lines written as UTF-8</source>
        <translation>被写成 UTF-8 的压缩折线</translation>
    </message>
    <message>
        <source>paths that end where they are damaged</source>
        <translation>在损坏处中止的路径</translation>
    </message>
    <message>
        <source>paths with coordinates out of range</source>
        <translation>坐标超出范围的路径</translation>
    </message>
    <message>
        <source>patterns, filled all over</source>
        <translation>图案填充，按整体填充处理</translation>
    </message>
    <message>
        <source>pictures (bitmaps)</source>
        <translation>图片（位图）</translation>
    </message>
    <message>
        <source>points beyond all sheets</source>
        <translation>超出一切图纸的点</translation>
    </message>
    <message>
        <source>polygon neither filled nor drawn</source>
        <translation>多边形既未填充也未绘出</translation>
    </message>
    <message>
        <source>references to nothing</source>
        <translation>引用的对象不存在</translation>
    </message>
    <message>
        <source>references to other files</source>
        <translation>对其他文件的引用</translation>
    </message>
    <message>
        <source>scripts</source>
        <translation>脚本</translation>
    </message>
    <message>
        <source>shapes without stroke and fill</source>
        <translation>没有描边和填充的形状</translation>
    </message>
    <message>
        <source>style rules that are not known</source>
        <translation>无法识别的样式规则</translation>
    </message>
    <message>
        <source>text that is no command</source>
        <translation>不是命令的文字</translation>
    </message>
    <message>
        <source>the file ends within command %1</source>
        <translation>文件在命令 %1 中途结束</translation>
    </message>
    <message>
        <source>texts along a path, set straight</source>
        <translation>沿路径的文字，改为直排</translation>
    </message>
    <message>
        <source>texts in clip paths</source>
        <translation>剪切路径中的文字</translation>
    </message>
    <message>
        <source>texts taken from elsewhere</source>
        <translation>引自他处的文字</translation>
    </message>
    <message>
        <source>texts under a clip path, kept whole</source>
        <translation>受剪切路径限制的文字，完整保留</translation>
    </message>
    <message>
        <source>texts without a size or out of range</source>
        <translation>没有大小或超出范围的文字</translation>
    </message>
    <message>
        <source>transforms that cannot be read</source>
        <translation>无法读取的变换</translation>
    </message>
    <message>
        <source>turned letters in a text, kept upright</source>
        <translation>文字中旋转的字母，按不旋转处理</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>未知命令 %1</translation>
    </message>
    <message>
        <source>%1 with a value that is missing or wrong</source>
        <translation>%1 缺少数值或数值有误</translation>
    </message>
    <message>
        <source>It draws more than %1 lines and curves, the limit.</source>
        <translation>图形的线段和曲线超过上限 %1。</translation>
    </message>
    <message>
        <source>It is damaged: %1 of %2 entities have values that are missing or wrong.</source>
        <translation>文件已损坏：%2 个图元中有 %1 个缺少数值或数值有误。</translation>
    </message>
    <message>
        <source>Put what you need into the model space on visible layers, as lines, curves and texts, and save it again.</source>
        <translation>请将需要的内容以线、曲线和文字的形式放入模型空间的可见图层，再重新保存。</translation>
    </message>
    <message>
        <source>Save it again from the program that drew it.</source>
        <translation>请在原绘图程序中重新保存。</translation>
    </message>
    <message>
        <source>The file names its unit: it is %1 mm long.</source>
        <translation>文件注明了单位：其长度为 %1 mm。</translation>
    </message>
    <message>
        <source>The file names no unit; it says that it is metric, so millimetres are taken.</source>
        <translation>文件未注明单位；文件标明为公制，故按毫米读取。</translation>
    </message>
    <message>
        <source>The file names no unit; it says that it is not metric and is small, so inches are taken.</source>
        <translation>文件未注明单位；文件标明非公制且尺寸较小，故按英寸读取。</translation>
    </message>
    <message>
        <source>The file names no unit; it shows lengths in feet and inches, so inches are taken.</source>
        <translation>文件未注明单位；文件以英尺和英寸显示长度，故按英寸读取。</translation>
    </message>
    <message>
        <source>The file names no unit; it would be smaller than 1 mm, so inches are taken.</source>
        <translation>文件未注明单位；按毫米将小于 1 mm，故按英寸读取。</translation>
    </message>
    <message>
        <source>The file names no unit; millimetres are taken, as most drawings are in them.</source>
        <translation>文件未注明单位；多数图形使用毫米，故按毫米读取。</translation>
    </message>
    <message>
        <source>The unit was chosen.</source>
        <translation>单位由用户选定。</translation>
    </message>
    <message>
        <source>There is nothing in the drawing that can be read, only: %1.</source>
        <translation>图形中没有可读取的内容，只有：%1。</translation>
    </message>
    <message>
        <source>There is nothing in the drawing.</source>
        <translation>图形中没有内容。</translation>
    </message>
    <message>
        <source>arrow heads of leaders</source>
        <translation>引线的箭头</translation>
    </message>
    <message>
        <source>blocks that hold themselves, or too many in another</source>
        <translation>包含自身或嵌套过深的图块</translation>
    </message>
    <message>
        <source>blocks that stand in other files</source>
        <translation>位于其他文件中的图块</translation>
    </message>
    <message>
        <source>dashed line types: drawn without gaps</source>
        <translation>虚线线型：按实线绘制</translation>
    </message>
    <message>
        <source>dimensions without a picture of theirs</source>
        <translation>没有图形的尺寸标注</translation>
    </message>
    <message>
        <source>entities of the kind %1</source>
        <translation>类型为 %1 的图元</translation>
    </message>
    <message>
        <source>inserts of a block that is missing</source>
        <translation>引用了不存在的图块</translation>
    </message>
    <message>
        <source>meshes of surfaces</source>
        <translation>曲面网格</translation>
    </message>
    <message>
        <source>patterns of hatches: their areas are filled</source>
        <translation>填充图案：按区域填实</translation>
    </message>
    <message>
        <source>polylines of changing width: drawn as their middle line</source>
        <translation>宽度变化的多段线：按中心线绘制</translation>
    </message>
    <message>
        <source>texts stretched between two points: centred there</source>
        <translation>在两点之间拉伸的文字：居中放置</translation>
    </message>
    <message>
        <source>the end of the file is missing</source>
        <translation>文件缺少结尾</translation>
    </message>
    <message>
        <source>things made invisible</source>
        <translation>设为不可见的对象</translation>
    </message>
    <message>
        <source>things of the paper space</source>
        <translation>图纸空间中的对象</translation>
    </message>
    <message>
        <source>things on frozen layers</source>
        <translation>冻结图层上的对象</translation>
    </message>
    <message>
        <source>things on layers that are switched off</source>
        <translation>关闭图层上的对象</translation>
    </message>
    <message>
        <source>Copy the drawing in it into a drawing program and save it as SVG.</source>
        <translation>请将其中的图形复制到绘图程序中并另存为 SVG。</translation>
    </message>
    <message>
        <source>It was cut off: copy it or save it again.</source>
        <translation>文件被截断：请重新复制或重新保存。</translation>
    </message>
    <message>
        <source>Make a flat view of it in its program and save that as DXF.</source>
        <translation>请在其程序中生成平面视图并另存为 DXF。</translation>
    </message>
    <message>
        <source>Save it as UTF-8.</source>
        <translation>请另存为 UTF-8 编码。</translation>
    </message>
    <message>
        <source>Take it out with a text editor.</source>
        <translation>请用文本编辑器将其删除。</translation>
    </message>
    <message>
        <source>The file is not well-formed at line %1, column %2: %3.</source>
        <translation>文件在第 %1 行第 %2 列格式不正确：%3。</translation>
    </message>
    <message>
        <source>This is PostScript from Illustrator.</source>
        <translation>这是 Illustrator 的 PostScript 文件。</translation>
    </message>
    <message>
        <source>This is a 7z archive.</source>
        <translation>这是 7z 压缩包。</translation>
    </message>
    <message>
        <source>This is a BMP picture.</source>
        <translation>这是 BMP 图片。</translation>
    </message>
    <message>
        <source>This is a PSD picture.</source>
        <translation>这是 PSD 图片。</translation>
    </message>
    <message>
        <source>This is a RAR archive.</source>
        <translation>这是 RAR 压缩包。</translation>
    </message>
    <message>
        <source>This is a STEP model, a body in space.</source>
        <translation>这是 STEP 三维模型。</translation>
    </message>
    <message>
        <source>This is a Windows metafile.</source>
        <translation>这是 Windows 图元文件。</translation>
    </message>
    <message>
        <source>This is a document of an office or CAD program.</source>
        <translation>这是办公软件或 CAD 程序的文档。</translation>
    </message>
    <message>
        <source>This is a document of an office program.</source>
        <translation>这是办公软件的文档。</translation>
    </message>
    <message>
        <source>This is an STL model, a body in space.</source>
        <translation>这是 STL 三维模型。</translation>
    </message>
    <message>
        <source>an attribute is given twice</source>
        <translation>某个属性出现了两次</translation>
    </message>
    <message>
        <source>an element ends that did not begin there</source>
        <translation>结束了一个未在此处开始的元素</translation>
    </message>
    <message>
        <source>an entity (&amp;name;) is not declared, or refers to itself or to too much</source>
        <translation>实体（&amp;name;）未声明，或引用了自身，或引用过多</translation>
    </message>
    <message>
        <source>it ends before its drawing does</source>
        <translation>图形尚未结束，文件就结束了</translation>
    </message>
    <message>
        <source>letters are not in the encoding that it names</source>
        <translation>文字与文件声明的编码不符</translation>
    </message>
    <message>
        <source>points, taken as dots</source>
        <translation>点，作为单点读入</translation>
    </message>
    <message>
        <source>two hyphens stand inside of a comment</source>
        <translation>注释中有两个连续的连字符</translation>
    </message>
    <message>
        <source>what stands there does not belong there</source>
        <translation>此处的内容不应出现</translation>
    </message>
    <message>
        <source>Left out: %1.</source>
        <translation>略去：%1。</translation>
    </message>
    <message>
        <source>circles and arcs without a radius</source>
        <translation>没有半径的圆和圆弧</translation>
    </message>
    <message>
        <source>texts seen from the side</source>
        <translation>从侧面看的文字</translation>
    </message>
    <message>
        <source>Copy or load it once more.</source>
        <translation>请重新复制或下载。</translation>
    </message>
    <message>
        <source>The file is compressed (gzip) and damaged.</source>
        <translation>文件经过压缩（gzip）并且已损坏。</translation>
    </message>
    <message>
        <source>This is a gzip archive.</source>
        <translation>这是 gzip 压缩档案。</translation>
    </message>
</context>
</TS>
