<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Arguments</name>
    <message>
        <source>&quot;%1&quot; is too large, at most 1000000 copies can be made</source>
        <translation>“%1”过大，最多可以复制 1000000 份</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no matrix, write columns x rows such as 3x4</source>
        <translation>“%1”不是矩阵，请写列数 x 行数，例如 3x4</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no matrix, columns and rows must be at least 1</source>
        <translation>“%1”不是矩阵，列数和行数至少为 1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no serial number: &quot;%2&quot; is not a whole number</source>
        <translation>“%1”不是序列号：“%2”不是整数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no serial number: base is 10, 16 or 26 (letters)</source>
        <translation>“%1”不是序列号：base 为 10、16 或 26（字母）</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no serial number: width must be from 0 to 256</source>
        <translation>“%1”不是序列号：width 必须在 0 到 256 之间</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no serial number, write start=1,step=1,last=99,width=4,base=10 or some of them</source>
        <translation>“%1”不是序列号，请写 start=1,step=1,last=99,width=4,base=10 或其中几项</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither UTF-8 nor in the encoding of the locale</source>
        <translation>“%1”既不是 UTF-8，也不是当前区域设置的编码</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>“%1”不是数字</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is out of range, it must be from %2 to %3</source>
        <translation>“%1”超出范围，必须在 %2 到 %3 之间</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number</source>
        <translation>“%1”不是整数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a length, write a number with mm, cm or in behind it</source>
        <translation>“%1”不是长度，请写数字，后面加 mm、cm 或 in</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has an unknown unit, lengths take mm, cm or in</source>
        <translation>“%1”的单位未知，长度单位为 mm、cm 或 in</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is negative</source>
        <translation>“%1”是负数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is too long, at most 10000 mm are allowed</source>
        <translation>“%1”过长，最多 10000 mm</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be greater than 0</source>
        <translation>“%1”必须大于 0</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not among the choices</source>
        <translation>“%1”不在可选值之中</translation>
    </message>
</context>
<context>
    <name>CleanArgument</name>
    <message>
        <source>1 pair of ends joined</source>
        <translation>连接端点 1 对</translation>
    </message>
    <message>
        <source>%1 pairs of ends joined</source>
        <translation>连接端点 %1 对</translation>
    </message>
    <message>
        <source>1 outline closed</source>
        <translation>闭合轮廓 1 个</translation>
    </message>
    <message>
        <source>%1 outlines closed</source>
        <translation>闭合轮廓 %1 个</translation>
    </message>
    <message>
        <source>1 doubled piece removed</source>
        <translation>去除重复线段 1 条</translation>
    </message>
    <message>
        <source>%1 doubled pieces removed</source>
        <translation>去除重复线段 %1 条</translation>
    </message>
    <message>
        <source>1 piece without length removed</source>
        <translation>去除零长度线段 1 条</translation>
    </message>
    <message>
        <source>%1 pieces without length removed</source>
        <translation>去除零长度线段 %1 条</translation>
    </message>
    <message>
        <source>Mend SVG, DXF and plotter drawings: join=LENGTH, duplicates, zero,
simplify=LENGTH, arcs=LENGTH, weld, order, with commas between</source>
        <translation>修复 SVG、DXF 和绘图仪图纸：join=长度、duplicates、zero、
simplify=长度、arcs=长度、weld、order，用逗号分隔</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names nothing to mend</source>
        <translation>“%1”没有指明要修复什么</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: %2 needs a length, as in %2=0.02mm</source>
        <translation>“%1”：%2 需要一个长度，例如 %2=0.02mm</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: %2 takes no value</source>
        <translation>“%1”：%2 不带值</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: cleaning takes join, duplicates, zero, simplify, arcs, weld and order, not &quot;%2&quot;</source>
        <translation>“%1”：清理可用 join、duplicates、zero、simplify、arcs、weld 和 order，没有“%2”</translation>
    </message>
    <message>
        <source>nothing to mend</source>
        <translation>无需修复</translation>
    </message>
    <message>
        <source>%1; paths %2, now %3; pieces %4, now %5; jumps %6 mm, now %7 mm</source>
        <translation>%1；路径由 %2 条变为 %3 条；线段由 %4 条变为 %5 条；空跳由 %6 mm 变为 %7 mm</translation>
    </message>
    <message>
        <source>1 pair of loose ends</source>
        <translation>松散端点 1 对</translation>
    </message>
    <message>
        <source>%1 pairs of loose ends</source>
        <translation>松散端点 %1 对</translation>
    </message>
    <message>
        <source>1 outline to close</source>
        <translation>可闭合的轮廓 1 个</translation>
    </message>
    <message>
        <source>%1 outlines to close</source>
        <translation>可闭合的轮廓 %1 个</translation>
    </message>
    <message>
        <source>doubled pieces: %1, %2 mm</source>
        <translation>重复线段 %1 条，共 %2 mm</translation>
    </message>
    <message>
        <source>1 piece without length</source>
        <translation>零长度线段 1 条</translation>
    </message>
    <message>
        <source>%1 pieces without length</source>
        <translation>零长度线段 %1 条</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1 (--clean join=0.05mm,duplicates,zero)</source>
        <translation>%1（--clean join=0.05mm,duplicates,zero）</translation>
    </message>
</context>
<context>
    <name>CodeCommand</name>
    <message>
        <source>Make a QR, Data Matrix or bar code</source>
        <translation>生成 QR 码、Data Matrix 或一维条码</translation>
    </message>
    <message>
        <source>Kind of code, as --list tells</source>
        <translation>码制，见 --list</translation>
    </message>
    <message>
        <source>What the code holds</source>
        <translation>条码的内容</translation>
    </message>
    <message>
        <source>Read the code back from its marks; what reads otherwise fails</source>
        <translation>从标刻结果回读条码；读出内容不符即失败</translation>
    </message>
    <message>
        <source>Serial number: start=1,step=1,last=99,width=4,base=10 or some of them</source>
        <translation>序列号：start=1,step=1,last=99,width=4,base=10 或其中几项</translation>
    </message>
    <message>
        <source>Write so many parts, 1 to 10000, each with its own number</source>
        <translation>写出的份数，1 到 10000，每份有自己的序列号</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no symbology, ztmark code --list tells them</source>
        <translation>“%1”不是码制，可用 ztmark code --list 查看</translation>
    </message>
    <message>
        <source>all parts would be the same without --serial or {serial}</source>
        <translation>没有 --serial 或 {serial}，所有份都会相同</translation>
    </message>
    <message>
        <source>has more than %1 places</source>
        <translation>有超过 %1 个位置</translation>
    </message>
    <message>
        <source>the serial number ends after part %1 of %2</source>
        <translation>序列号在第 %1 份后用完，需要 %2 份</translation>
    </message>
    <message>
        <source>part %1, &quot;%2&quot;: %3</source>
        <translation>第 %1 份，“%2”：%3</translation>
    </message>
    <message>
        <source>part %1 of %2</source>
        <translation>第 %1 份，共 %2 份</translation>
    </message>
    <message>
        <source>there is no reader for %1 to verify it</source>
        <translation>没有可验证 %1 的识读程序</translation>
    </message>
    <message>
        <source>the marks read as nothing: dots are as wide as the beam, give --beam</source>
        <translation>标刻结果无法读出：点的大小就是光斑的大小，请给出 --beam</translation>
    </message>
    <message>
        <source>the marks read as nothing: try a larger module or a closer hatch</source>
        <translation>标刻结果无法读出：请用更大的模块或更密的填充</translation>
    </message>
    <message>
        <source>the marks read as nothing: outlines alone are no code, give --hatch</source>
        <translation>标刻结果无法读出：只有轮廓不成条码，请给出 --hatch</translation>
    </message>
    <message>
        <source>Code:</source>
        <translation>条码：</translation>
    </message>
    <message>
        <source>%1, %2 x %3 modules</source>
        <translation>%1，%2 x %3 个模块</translation>
    </message>
    <message>
        <source>Parts:</source>
        <translation>份数：</translation>
    </message>
    <message>
        <source>Verified:</source>
        <translation>已验证：</translation>
    </message>
    <message>
        <source>Reads:</source>
        <translation>内容：</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>尺寸：</translation>
    </message>
    <message>
        <source>%1 x %2 mm</source>
        <translation>%1 x %2 mm</translation>
    </message>
    <message>
        <source>Module:</source>
        <translation>模块：</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
    <message>
        <source>Tell all symbologies, or more about one: what it can hold</source>
        <translation>列出所有码制，或详细说明一种：能容纳什么</translation>
    </message>
    <message>
        <source>nothing without --verify</source>
        <translation>没有 --verify 时无作用</translation>
    </message>
    <message>
        <source>verifying part %1 of %2</source>
        <translation>正在校验第 %1 个工件（共 %2 个）</translation>
    </message>
    <message>
        <source>part %1 of %2 is not as it should be: nothing written</source>
        <translation>第 %1 个工件（共 %2 个）不符合要求：未写出任何内容</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 到 %2</translation>
    </message>
    <message>
        <source>Holds:</source>
        <translation>可容纳：</translation>
    </message>
    <message>
        <source>Levels:</source>
        <translation>等级：</translation>
    </message>
    <message>
        <source>Sizes:</source>
        <translation>尺寸：</translation>
    </message>
    <message>
        <source>Quiet zone:</source>
        <translation>静区：</translation>
    </message>
    <message>
        <source>%1 modules left, %2 right, %3 above and below</source>
        <translation>左 %1 个模块，右 %2 个，上下 %3 个</translation>
    </message>
    <message>
        <source>Can be verified:</source>
        <translation>可校验：</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>no</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Character sets:</source>
        <translation>字符集：</translation>
    </message>
    <message>
        <source>Check digit:</source>
        <translation>校验位：</translation>
    </message>
    <message>
        <source>Columns:</source>
        <translation>列数：</translation>
    </message>
    <message>
        <source>Escapes:</source>
        <translation>转义：</translation>
    </message>
    <message>
        <source>In the content, {serial} or {} is the place of the serial number and {date} or
{date:yyyy-MM-dd} that of the date; \n is a line feed, \\ a backslash, \{ a brace.
With --escapes \G and \R separate groups and records, \E ends a message, \xHH and \uHHHH
are characters by their numbers, \t \r \e \0 \a \b \f \v as programmers know them.
The digits of EAN and UPC stand under their bars, unless characters are given a spacing.
A content that the symbology cannot hold is refused, and nothing is written.

Examples:
  ztmark code datamatrix SN-0001 --module 0.5mm --hatch line --spacing 0.05mm -o sn.svg
  ztmark code ean13 400638133393 --text below --hatch line --spacing 0.05mm -o ean.svg
  ztmark code datamatrix &quot;[)&gt;\R06\G17VABC\GSSN-1\R\E&quot; --escapes -o dm.svg
  ztmark code qr &quot;SN-{serial}&quot; --serial start=1,width=4 --parts 50 -o sn.json
  ztmark code --list</source>
        <translation>内容中，{serial} 或 {} 是序列号的位置，{date} 或 {date:yyyy-MM-dd} 是日期的位置；
\n 表示换行，\\ 表示反斜杠，\{ 表示花括号。
给出 --escapes 时，\G 和 \R 分隔组和记录，\E 结束报文，\xHH 和 \uHHHH 是以编号
表示的字符，\t \r \e \0 \a \b \f \v 与编程中相同。
EAN 和 UPC 的数字位于各自的条下，除非字符另有间距。
码制无法容纳的内容会被拒绝，并且不写出任何文件。

示例：
  ztmark code datamatrix SN-0001 --module 0.5mm --hatch line --spacing 0.05mm -o sn.svg
  ztmark code ean13 400638133393 --text below --hatch line --spacing 0.05mm -o ean.svg
  ztmark code datamatrix &quot;[)&gt;\R06\G17VABC\GSSN-1\R\E&quot; --escapes -o dm.svg
  ztmark code qr &quot;SN-{serial}&quot; --serial start=1,width=4 --parts 50 -o sn.json
  ztmark code --list</translation>
    </message>
    <message>
        <source>Masks:</source>
        <translation>掩模：</translation>
    </message>
    <message>
        <source>Rectangular:</source>
        <translation>矩形：</translation>
    </message>
    <message>
        <source>as wanted</source>
        <translation>可选</translation>
    </message>
    <message>
        <source>by itself</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>its own</source>
        <translation>自有</translation>
    </message>
    <message>
        <source>Width of the beam for --verify; else the growth, or the spacing of the hatch</source>
        <translation>--verify 用的光束宽度；否则用扣除的宽度，或填充线的间距</translation>
    </message>
</context>
<context>
    <name>ConvertCommand</name>
    <message>
        <source>&quot;%1&quot; must end in .ztd; ztmark mark and render write other forms</source>
        <translation>“%1”必须以 .ztd 结尾；其他格式由 ztmark mark 和 render 写出</translation>
    </message>
    <message>
        <source>The drawing, .ztd</source>
        <translation>图纸文件 .ztd</translation>
    </message>
    <message>
        <source>writing %1</source>
        <translation>正在写入 %1</translation>
    </message>
    <message>
        <source>Turn SVG, DXF and plotter drawings into a drawing, or save one anew</source>
        <translation>把 SVG、DXF 和绘图仪图纸变成图纸，或重新保存图纸</translation>
    </message>
    <message>
        <source>not for a drawing, which is saved as it is</source>
        <translation>不能用于图纸：图纸按原样保存</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is there already; -o %1 replaces it</source>
        <translation>“%1”已经存在；用 -o %1 才会替换它</translation>
    </message>
    <message>
        <source>SVG, DXF and plotter drawings come in at true size unless an option says otherwise, side
by side, 2 mm apart, in the middle of the work area. They are kept in the drawing: their
files are not needed any more. A drawing that is saved anew marks as before; sections of
it that this version does not know are kept.
Mark paths of a drawing are written by ztmark mark, pictures by ztmark render.
Without -o the last FILE is the drawing that is made; one that is there already is kept.

Examples:
  ztmark convert part.dxf part.ztd
  ztmark convert part.dxf logo.svg -o plate.ztd
  ztmark convert logo.plt --height 20mm --clean join=0.05mm -o logo.ztd
  ztmark convert old.ztd -o new.ztd</source>
        <translation>SVG、DXF 和绘图仪图纸按真实尺寸导入（除非选项另有规定），并排放置，间隔 2 mm，
位于工作区中央。它们保存在图纸中，不再需要原文件。重新保存的图纸标刻如前；
其中本版本不认识的部分会保留。
图纸的标刻路径由 ztmark mark 写出，图片由 ztmark render 写出。
不加 -o 时，最后一个 FILE 就是要生成的图纸；已经存在的图纸会保留。

示例：
  ztmark convert part.dxf part.ztd
  ztmark convert part.dxf logo.svg -o plate.ztd
  ztmark convert logo.plt --height 20mm --clean join=0.05mm -o logo.ztd
  ztmark convert old.ztd -o new.ztd</translation>
    </message>
</context>
<context>
    <name>DrawingInfo</name>
    <message>
        <source>Format:</source>
        <translation>格式：</translation>
    </message>
    <message>
        <source>drawing, version %1</source>
        <translation>图纸，版本 %1</translation>
    </message>
    <message>
        <source>Saved by:</source>
        <translation>保存程序：</translation>
    </message>
    <message>
        <source>Saved at:</source>
        <translation>保存时间：</translation>
    </message>
    <message>
        <source>Kind:</source>
        <translation>种类：</translation>
    </message>
    <message>
        <source>bare stream, without what imported drawings hold</source>
        <translation>裸数据流，不含导入图纸的内容</translation>
    </message>
    <message>
        <source>Unknown sections:</source>
        <translation>未知部分：</translation>
    </message>
    <message>
        <source>Reference screen:</source>
        <translation>参考屏幕：</translation>
    </message>
    <message>
        <source>%1 x %2 px, %3 x %4 mm, ratio %5</source>
        <translation>%1 x %2 像素，%3 x %4 mm，比例 %5</translation>
    </message>
    <message>
        <source>Marking distance:</source>
        <translation>标刻距离：</translation>
    </message>
    <message>
        <source>Mark scale:</source>
        <translation>标刻比例：</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
    <message>
        <source>Work area:</source>
        <translation>工作区域：</translation>
    </message>
    <message>
        <source>%1 x %2 mm from (%3, %4)</source>
        <translation>%1 x %2 mm，起点 (%3, %4)</translation>
    </message>
    <message>
        <source>Order:</source>
        <translation>顺序：</translation>
    </message>
    <message>
        <source>Shapes:</source>
        <translation>图形：</translation>
    </message>
    <message>
        <source>rectangles: %1</source>
        <translation>矩形：%1</translation>
    </message>
    <message>
        <source>ellipses: %1</source>
        <translation>椭圆：%1</translation>
    </message>
    <message>
        <source>polygons: %1</source>
        <translation>多边形：%1</translation>
    </message>
    <message>
        <source>lines: %1</source>
        <translation>直线：%1</translation>
    </message>
    <message>
        <source>TDOT figures: %1</source>
        <translation>TDOT 图形：%1</translation>
    </message>
    <message>
        <source>texts: %1</source>
        <translation>文字：%1</translation>
    </message>
    <message>
        <source>others: %1</source>
        <translation>其他：%1</translation>
    </message>
    <message>
        <source>Pens:</source>
        <translation>笔：</translation>
    </message>
    <message>
        <source>pen %1, shapes: %2</source>
        <translation>笔 %1，图形：%2</translation>
    </message>
    <message>
        <source>Imported files:</source>
        <translation>导入的文件：</translation>
    </message>
    <message>
        <source>%1, shapes: %2</source>
        <translation>%1，图形：%2</translation>
    </message>
    <message>
        <source>Fonts:</source>
        <translation>字体：</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>stroke font</source>
        <translation>单线字体</translation>
    </message>
    <message>
        <source>system font</source>
        <translation>系统字体</translation>
    </message>
    <message>
        <source>stroke font, missing</source>
        <translation>单线字体，缺失</translation>
    </message>
    <message>
        <source>system font, missing</source>
        <translation>系统字体，缺失</translation>
    </message>
    <message>
        <source>Variant texts:</source>
        <translation>可变文本：</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>预览：</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 像素</translation>
    </message>
    <message>
        <source>Marked twice:</source>
        <translation>标刻两次：</translation>
    </message>
    <message>
        <source>Outside the field:</source>
        <translation>超出工作区：</translation>
    </message>
    <message>
        <source>Without length:</source>
        <translation>无长度的轮廓：</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>另有 %1 个</translation>
    </message>
    <message>
        <source>codes: %1</source>
        <translation>码：%1</translation>
    </message>
    <message>
        <source>bar codes: %1</source>
        <translation>条形码：%1</translation>
    </message>
    <message>
        <source>Not as asked for:</source>
        <translation>与要求不符：</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 毫米</translation>
    </message>
    <message>
        <source>Curve tolerance:</source>
        <translation>曲线公差：</translation>
    </message>
    <message>
        <source>%1 degrees</source>
        <translation>%1 度</translation>
    </message>
    <message>
        <source>Hatches:</source>
        <translation>填充：</translation>
    </message>
    <message>
        <source>after the outlines</source>
        <translation>在轮廓之后</translation>
    </message>
    <message>
        <source>before the outlines</source>
        <translation>在轮廓之前</translation>
    </message>
    <message>
        <source>contours</source>
        <translation>轮廓线</translation>
    </message>
    <message>
        <source>crossed lines</source>
        <translation>交叉线</translation>
    </message>
    <message>
        <source>inset %1 mm</source>
        <translation>内缩 %1 毫米</translation>
    </message>
    <message>
        <source>lines turned each pass</source>
        <translation>每遍旋转的线</translation>
    </message>
    <message>
        <source>one way</source>
        <translation>同向</translation>
    </message>
    <message>
        <source>passes: %1</source>
        <translation>遍数：%1</translation>
    </message>
    <message>
        <source>pen %1</source>
        <translation>笔 %1</translation>
    </message>
    <message>
        <source>single lines</source>
        <translation>单线</translation>
    </message>
    <message>
        <source>turned by %1 degrees</source>
        <translation>每遍旋转 %1 度</translation>
    </message>
    <message>
        <source>zigzag</source>
        <translation>之字线</translation>
    </message>
    <message>
        <source>paths: %1</source>
        <translation>路径：%1</translation>
    </message>
</context>
<context>
    <name>FontCommand</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 到 %2</translation>
    </message>
    <message>
        <source>big</source>
        <translation>大字体</translation>
    </message>
    <message>
        <source>regular</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>以及另外 %1 个</translation>
    </message>
    <message>
        <source>Form:</source>
        <translation>格式：</translation>
    </message>
    <message>
        <source>Kind:</source>
        <translation>种类：</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>名称：</translation>
    </message>
    <message>
        <source>Above:</source>
        <translation>上高：</translation>
    </message>
    <message>
        <source>Below:</source>
        <translation>下深：</translation>
    </message>
    <message>
        <source>Lead bytes:</source>
        <translation>首字节：</translation>
    </message>
    <message>
        <source>Glyphs:</source>
        <translation>字形：</translation>
    </message>
    <message>
        <source>Codes:</source>
        <translation>编码：</translation>
    </message>
    <message>
        <source>Damage:</source>
        <translation>损坏：</translation>
    </message>
    <message>
        <source>Show which fonts there are and what is in them</source>
        <translation>显示有哪些字体及其内容</translation>
    </message>
    <message>
        <source>List the stroke fonts</source>
        <translation>列出单线字体</translation>
    </message>
    <message>
        <source>List the families of system fonts instead</source>
        <translation>改为列出系统字体</translation>
    </message>
    <message>
        <source>Tell what is in a stroke font, and what of it is damaged</source>
        <translation>说明单线字体的内容及损坏之处</translation>
    </message>
    <message>
        <source>Draw every glyph of a stroke font above its code</source>
        <translation>绘制单线字体的每个字形及其编码</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must end in one of %2</source>
        <translation>“%1”必须以 %2 之一结尾</translation>
    </message>
    <message>
        <source>Picture to write, .svg or .png. Can be given several times</source>
        <translation>要写出的图片，.svg 或 .png，可以多次给出</translation>
    </message>
    <message>
        <source>No summary</source>
        <translation>不显示摘要</translation>
    </message>
    <message>
        <source>Stroke font; a name without a folder is looked for in the font folders too</source>
        <translation>单线字体；不带文件夹的名称也会在字体文件夹中查找</translation>
    </message>
    <message>
        <source>Another folder with stroke fonts. Can be given several times</source>
        <translation>另一个存放单线字体的文件夹，可以多次给出</translation>
    </message>
    <message>
        <source>no such folder</source>
        <translation>文件夹不存在</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Glyphs</source>
        <translation>字形</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>No stroke fonts in %1</source>
        <translation>在 %1 中没有单线字体</translation>
    </message>
    <message>
        <source>would overwrite the font it shows</source>
        <translation>会覆盖所显示的字体</translation>
    </message>
    <message>
        <source>Grid:</source>
        <translation>网格：</translation>
    </message>
    <message>
        <source>%1 x %2 cells</source>
        <translation>%1 x %2 格</translation>
    </message>
    <message>
        <source>Stroke fonts are the files *.shx in the folder font beside the program, or else those that were
installed with it, and yours in ~/.local/share/ztdrawengine/font. A text takes a pair of them: a
regular one and a big one, which has the Chinese characters. What has no code in such pairs comes
from unicode-strokes.shx, the same for every pair.</source>
        <translation>单线字体是程序旁 font 文件夹中的 *.shx 文件，没有该文件夹时是随程序安装的字体，
另加 ~/.local/share/ztdrawengine/font 中您自己的字体。文本使用其中的一对：
一个常规字体和一个含汉字的大字体。这对字体没有编码的字符
取自 unicode-strokes.shx，任何一对都相同。</translation>
    </message>
</context>
<context>
    <name>FontFolders</name>
    <message>
        <source>More stroke fonts than those that come with the program</source>
        <translation>除程序自带的单线字体外，另一个单线字体文件夹</translation>
    </message>
    <message>
        <source>no such folder</source>
        <translation>文件夹不存在</translation>
    </message>
</context>
<context>
    <name>ForeignFiles</name>
    <message>
        <source>&quot;%1&quot; is no size such as 40x20 or 40mmx2cm</source>
        <translation>“%1”不是 40x20 或 40mmx2cm 这样的尺寸</translation>
    </message>
    <message>
        <source>%1 closed, %2 open</source>
        <translation>%1 条闭合，%2 条未闭合</translation>
    </message>
    <message>
        <source>%1 mm. %2</source>
        <translation>%1 mm。%2</translation>
    </message>
    <message>
        <source>%1 x %2 mm</source>
        <translation>%1 x %2 mm</translation>
    </message>
    <message>
        <source>%1, first at %2</source>
        <translation>%1，首次出现于 %2</translation>
    </message>
    <message>
        <source>Colors:</source>
        <translation>颜色：</translation>
    </message>
    <message>
        <source>Enlarge each drawing to this height</source>
        <translation>将每个图形缩放到此高度</translation>
    </message>
    <message>
        <source>Enlarge each drawing to this width</source>
        <translation>将每个图形缩放到此宽度</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>格式：</translation>
    </message>
    <message>
        <source>Hatch open outlines as if they were closed</source>
        <translation>将未闭合轮廓视为闭合进行填充</translation>
    </message>
    <message>
        <source>How far straight pieces may lie beside curves</source>
        <translation>直线段与曲线的最大偏差</translation>
    </message>
    <message>
        <source>Layer:</source>
        <translation>图层：</translation>
    </message>
    <message>
        <source>Length of the file&apos;s unit: mm, cm, in, or a length such as 0.025mm</source>
        <translation>文件单位的长度：mm、cm、in 或如 0.025mm 的长度</translation>
    </message>
    <message>
        <source>Outlines:</source>
        <translation>轮廓：</translation>
    </message>
    <message>
        <source>Pens:</source>
        <translation>笔：</translation>
    </message>
    <message>
        <source>Pieces:</source>
        <translation>线段：</translation>
    </message>
    <message>
        <source>Sheet:</source>
        <translation>页面：</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>尺寸：</translation>
    </message>
    <message>
        <source>Stretch each drawing to this width and height</source>
        <translation>将每个图形拉伸到此宽度和高度</translation>
    </message>
    <message>
        <source>Texts:</source>
        <translation>文字：</translation>
    </message>
    <message>
        <source>Unit:</source>
        <translation>单位：</translation>
    </message>
    <message>
        <source>What becomes one shape: none, layer, color, outline</source>
        <translation>按什么拆分为形状：none、layer、color、outline</translation>
    </message>
    <message>
        <source>Written by:</source>
        <translation>生成程序：</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>已更改</translation>
    </message>
    <message>
        <source>damaged</source>
        <translation>已损坏</translation>
    </message>
    <message>
        <source>has no extent in the direction of the size asked for</source>
        <translation>在所要求尺寸的方向上没有大小</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>已略去</translation>
    </message>
    <message>
        <source>one of --size, --width and --height is enough</source>
        <translation>--size、--width 和 --height 只能选一个</translation>
    </message>
    <message>
        <source>reading %1</source>
        <translation>正在读取 %1</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告：%1</translation>
    </message>
    <message>
        <source>1 shape</source>
        <translation>1 个图形</translation>
    </message>
    <message>
        <source>%1 shapes</source>
        <translation>%1 个图形</translation>
    </message>
    <message>
        <source>1 text</source>
        <translation>1 个文字</translation>
    </message>
    <message>
        <source>%1 texts</source>
        <translation>%1 个文字</translation>
    </message>
    <message>
        <source>1 line</source>
        <translation>1 段直线</translation>
    </message>
    <message>
        <source>%1 lines</source>
        <translation>%1 段直线</translation>
    </message>
    <message>
        <source>1 arc</source>
        <translation>1 段圆弧</translation>
    </message>
    <message>
        <source>%1 arcs</source>
        <translation>%1 段圆弧</translation>
    </message>
    <message>
        <source>1 curve</source>
        <translation>1 段曲线</translation>
    </message>
    <message>
        <source>%1 curves</source>
        <translation>%1 段曲线</translation>
    </message>
    <message>
        <source>Cleaned:</source>
        <translation>已清理：</translation>
    </message>
    <message>
        <source>Cleaning mends:</source>
        <translation>清理可修复：</translation>
    </message>
    <message>
        <source>nothing is left of it after cleaning</source>
        <translation>清理后没有剩余内容</translation>
    </message>
    <message>
        <source>warning: dots: %1, taken in as lines of %2 mm</source>
        <translation>警告：单点 %1 个，以 %2 毫米的短线读入</translation>
    </message>
</context>
<context>
    <name>InfoCommand</name>
    <message>
        <source>Tell what is in a drawing, and what of it cannot be taken in</source>
        <translation>说明图纸中有什么，以及哪些内容无法读入</translation>
    </message>
    <message>
        <source>Of an SVG, DXF or plotter drawing it tells the size and how it was found, what is left
out, changed or damaged, and what mark --clean would mend.</source>
        <translation>对于 SVG、DXF 或绘图仪图纸，会给出尺寸及其来由、哪些内容被略去、改变或损坏，
以及 mark --clean 能修复什么。</translation>
    </message>
</context>
<context>
    <name>InputFiles</name>
    <message>
        <source>a drawing is taken alone, without other files</source>
        <translation>图纸只能单独使用，不能与其他文件一起</translation>
    </message>
    <message>
        <source>standard input can be read only once</source>
        <translation>标准输入只能读取一次</translation>
    </message>
    <message>
        <source>larger than %1 MiB, the limit for a drawing</source>
        <translation>超过 %1 MiB，即图纸的上限</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>没有这个文件</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>是一个文件夹</translation>
    </message>
    <message>
        <source>is no file name</source>
        <translation>不是文件名</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>是空的</translation>
    </message>
    <message>
        <source>SVG, DXF and plotter drawings, - reads standard input; or one
drawing, .ztd</source>
        <translation>SVG、DXF 和绘图仪图纸，- 表示读取标准输入；或一个图纸 .ztd</translation>
    </message>
    <message>
        <source>Drawing, .ztd, SVG, DXF or plotter drawing; - reads standard
input</source>
        <translation>图纸 .ztd、SVG、DXF 或绘图仪图纸；- 表示读取标准输入</translation>
    </message>
    <message>
        <source>reading %1</source>
        <translation>正在读取 %1</translation>
    </message>
</context>
<context>
    <name>JobArguments</name>
    <message>
        <source>is a folder</source>
        <translation>是文件夹</translation>
    </message>
    <message>
        <source>the folder does not exist</source>
        <translation>文件夹不存在</translation>
    </message>
    <message>
        <source>would overwrite a file that it is made of</source>
        <translation>会覆盖作为输入的文件</translation>
    </message>
    <message>
        <source>would overwrite the drawing it is made of</source>
        <translation>会覆盖作为输入的图纸</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must end in one of %2</source>
        <translation>“%1”必须以 %2 之一结尾</translation>
    </message>
    <message>
        <source>No summary and no progress; warnings stay</source>
        <translation>不显示摘要和进度，警告保留</translation>
    </message>
    <message>
        <source>Hatch style: none, line, or zigzag (lines joined end to end)</source>
        <translation>填充方式：none（无）、line（线）或 zigzag（首尾相连的线）</translation>
    </message>
    <message>
        <source>Distance of the hatch lines on the marked result</source>
        <translation>标刻结果上填充线的间距</translation>
    </message>
    <message>
        <source>Direction of the hatch lines, -360 to 360</source>
        <translation>填充线的方向，-360 到 360</translation>
    </message>
    <message>
        <source>Mark the hatch alone, without the outlines</source>
        <translation>只标刻填充，不标刻轮廓</translation>
    </message>
    <message>
        <source>Order of the objects: none, nearest, or a sweep x-min, x-max, y-min,
y-max from that side</source>
        <translation>对象顺序：none（不排序）、nearest（最近），或从一侧扫过：
x-min、x-max、y-min、y-max</translation>
    </message>
    <message>
        <source>Repeat the layout in columns x rows</source>
        <translation>按列数 x 行数重复整个布局</translation>
    </message>
    <message>
        <source>Space between copies and objects, across and down</source>
        <translation>副本和对象之间的水平与垂直间距</translation>
    </message>
    <message>
        <source>Turn each object, -360 to 360</source>
        <translation>旋转每个对象，-360 到 360</translation>
    </message>
    <message>
        <source>nothing to mark without --hatch line or zigzag</source>
        <translation>没有 --hatch line 或 zigzag 就没有可标刻的内容</translation>
    </message>
    <message>
        <source>writing %1</source>
        <translation>正在写入 %1</translation>
    </message>
    <message>
        <source>warning: the hatch is empty: no line meets the drawing</source>
        <translation>警告：填充为空：没有填充线与图形相交</translation>
    </message>
    <message>
        <source>Objects:</source>
        <translation>对象：</translation>
    </message>
    <message>
        <source>Polylines:</source>
        <translation>折线：</translation>
    </message>
    <message>
        <source>Hatch segments:</source>
        <translation>填充线段：</translation>
    </message>
    <message>
        <source>Mark length:</source>
        <translation>标刻长度：</translation>
    </message>
    <message>
        <source>Jump length:</source>
        <translation>跳转长度：</translation>
    </message>
    <message>
        <source>%1 before ordering, %2 after</source>
        <translation>排序前 %1，排序后 %2</translation>
    </message>
    <message>
        <source>Write the paths to a file; its extension says how: .svg or .png
a picture, .json or .csv the paths, .dxf the marks as a drawing.
Can be given several times</source>
        <translation>把路径写入文件；由扩展名决定形式：.svg 或 .png 为图片，
.json 或 .csv 为路径，.dxf 为标刻内容的图纸。可多次给出</translation>
    </message>
    <message>
        <source>An .svg holds the marks alone, as a drawing for other programs</source>
        <translation>.svg 只含标刻内容，作为供其他程序使用的图纸</translation>
    </message>
    <message>
        <source>Pictures show no jumps</source>
        <translation>图片不显示空跳</translation>
    </message>
    <message>
        <source>Enlarge the drawings, 0.001 to 1000</source>
        <translation>放大图纸，0.001 到 1000</translation>
    </message>
    <message>
        <source>nothing without an output .svg or .dxf</source>
        <translation>没有 .svg 或 .dxf 输出时无作用</translation>
    </message>
    <message>
        <source>nothing without an output .svg or .png</source>
        <translation>没有 .svg 或 .png 输出时无作用</translation>
    </message>
    <message>
        <source>Pictures are transparent where there is no mark</source>
        <translation>图片在无标刻处透明</translation>
    </message>
    <message>
        <source>Pictures show which way the marks run</source>
        <translation>图片显示标刻方向</translation>
    </message>
</context>
<context>
    <name>JobCommand</name>
    <message>
        <source>&quot;%1&quot; names no job: %2 belongs to drawings</source>
        <translation>“%1”不能作为作业文件名：%2 属于图纸</translation>
    </message>
    <message>
        <source>No summary and no progress; warnings stay</source>
        <translation>不显示摘要和进度，警告保留</translation>
    </message>
    <message>
        <source>Turn a drawing, or SVG, DXF and plotter drawings, into files for machines</source>
        <translation>把图纸，或 SVG、DXF 和绘图仪图纸，变成机器运行的文件</translation>
    </message>
    <message>
        <source>A drawing, .ztd, is marked where it lies, its (0, 0) in the middle of the machine&apos;s field.
SVG, DXF and plotter drawings come in at true size, side by side, in the middle of the
field; options that size, hatch, turn or mend them are those of ztmark mark.

Each part gets the next numbers of the drawing&apos;s serial numbers and lists, and today&apos;s date.
When all files are whole, the numbers are kept in the drawing: none comes twice. When one
fails, the others are taken back and the numbers stay. Without an output nothing is used up.

Several parts stand in one file with a pause before each where the form has one (G-code);
else, and with --separate, part 3 of OUT.svg is written to OUT-0003.svg.

Examples:
  ztmark job plate.ztd --profile grbl-diode -o plate.nc --parts 50
  ztmark job plate.ztd --frame box -o frame.nc
  ztmark job part.dxf --clean join=0.05mm,duplicates --profile galvo-fiber --time</source>
        <translation>图纸 .ztd 在其所在位置标刻，其 (0, 0) 位于机器幅面的中央。SVG、DXF 和绘图仪图纸
按真实尺寸并排放在幅面中央；调整尺寸、填充、旋转或修复它们的选项与 ztmark mark 相同。

每个工件取图纸的序列号和列表的下一个值，以及当天的日期。全部文件完整写出后，编号才保存
到图纸中：任何编号都不会出现两次。有文件失败时，其余文件会被收回，编号不变。没有输出时
不消耗编号。

形式允许暂停时（G-code），多个工件写在一个文件中，每个工件前暂停；否则，以及使用
--separate 时，OUT.svg 的第 3 个工件写入 OUT-0003.svg。

示例：
  ztmark job plate.ztd --profile grbl-diode -o plate.nc --parts 50
  ztmark job plate.ztd --frame box -o frame.nc
  ztmark job part.dxf --clean join=0.05mm,duplicates --profile galvo-fiber --time</translation>
    </message>
    <message>
        <source>The machine: a name of ztmark profile list, or a file</source>
        <translation>机器：ztmark profile list 中的名称，或一个文件</translation>
    </message>
    <message>
        <source>Order of the pieces: none, nearest, or best</source>
        <translation>线段的顺序：none、nearest 或 best</translation>
    </message>
    <message>
        <source>Parts to be marked, 1 to 10000</source>
        <translation>要标刻的工件数，1 到 10000</translation>
    </message>
    <message>
        <source>A file for each part, also where one can hold them all</source>
        <translation>每个工件一个文件，即使一个文件能容纳全部</translation>
    </message>
    <message>
        <source>Write also what reaches out of the machine&apos;s field</source>
        <translation>超出机器幅面的内容也写出</translation>
    </message>
    <message>
        <source>A file to write; its extension says how: .nc or .gcode, .plt or .hpgl,
.dxf, .svg, .json, .csv; any other gets the form of the profile. Can be
given several times</source>
        <translation>要写的文件；由扩展名决定形式：.nc 或 .gcode、.plt 或 .hpgl、
.dxf、.svg、.json、.csv；其他扩展名用机器配置的形式。可多次给出</translation>
    </message>
    <message>
        <source>Print how long the job takes</source>
        <translation>打印作业所需的时间</translation>
    </message>
    <message>
        <source>Print the times as JSON</source>
        <translation>以 JSON 打印时间</translation>
    </message>
    <message>
        <source>cannot be given together with --parts</source>
        <translation>不能与 --parts 同时给出</translation>
    </message>
    <message>
        <source>nothing without --output</source>
        <translation>没有 --output 时无作用</translation>
    </message>
    <message>
        <source>not for a drawing, which has its own layout and hatch</source>
        <translation>不能用于图纸：图纸有自己的布局和填充</translation>
    </message>
    <message>
        <source>ordering</source>
        <translation>正在排序</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告：%1</translation>
    </message>
    <message>
        <source>and %1 more of this kind</source>
        <translation>以及另外 %1 个同类问题</translation>
    </message>
    <message>
        <source>nothing written</source>
        <translation>未写出任何内容</translation>
    </message>
    <message>
        <source>writing %1</source>
        <translation>正在写入 %1</translation>
    </message>
    <message>
        <source>taken back, as the job is not whole</source>
        <translation>已收回，因为作业不完整</translation>
    </message>
    <message>
        <source>must not be run, as the job is not whole</source>
        <translation>不可运行，因为作业不完整</translation>
    </message>
    <message>
        <source>Parts:</source>
        <translation>工件数：</translation>
    </message>
    <message>
        <source>First part:</source>
        <translation>首个工件：</translation>
    </message>
    <message>
        <source>Part:</source>
        <translation>工件：</translation>
    </message>
    <message>
        <source>Last part:</source>
        <translation>最后工件：</translation>
    </message>
    <message>
        <source>Next part:</source>
        <translation>下一工件：</translation>
    </message>
    <message>
        <source>none, the numbers are used up</source>
        <translation>无，编号已用完</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>total</source>
        <translation>合计</translation>
    </message>
    <message>
        <source>marking</source>
        <translation>标刻</translation>
    </message>
    <message>
        <source>jumps</source>
        <translation>空跳</translation>
    </message>
    <message>
        <source>delays</source>
        <translation>延时</translation>
    </message>
    <message>
        <source>First part</source>
        <translation>首个工件</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>工件</translation>
    </message>
    <message>
        <source>  pen %1</source>
        <translation>  笔 %1</translation>
    </message>
    <message>
        <source>%1 parts</source>
        <translation>%1 个工件</translation>
    </message>
    <message>
        <source>Instead of the job its frame, box or hull, to be run without power</source>
        <translation>不写作业而写其外框 box 或凸包 hull，供无功率走一遍</translation>
    </message>
    <message>
        <source>Write also what does not show what it was given, such as a code that cannot
hold its content, or a text without its font</source>
        <translation>也写出没有显示给定内容的图形，例如容纳不下其内容的
条码或缺少字体的文字</translation>
    </message>
    <message>
        <source>nothing written: what does not show what it was given is written with --as-shown alone</source>
        <translation>没有写出：没有显示给定内容的图形只有用 --as-shown 才写出</translation>
    </message>
    <message>
        <source>Hatches before or after the outlines: any, before, or after</source>
        <translation>填充在轮廓之前或之后：any、before 或 after</translation>
    </message>
    <message>
        <source>Mark all of a pen, by its number, before the next</source>
        <translation>按笔号逐笔标刻</translation>
    </message>
    <message>
        <source>Mark outlines inside others before those around them</source>
        <translation>先标刻内部轮廓，再标刻外部轮廓</translation>
    </message>
    <message>
        <source>The pens, a JSON file; without it those of the drawing. Pens that
nobody gave values mark with 50 % and 500 mm/s, or as fast as the
machine is, after a warning</source>
        <translation>笔，JSON 文件；不给时用图纸的笔。没有设定数值的笔在警告之后以
50 % 和 500 mm/s 标刻，机器较慢时以机器的最大速度标刻</translation>
    </message>
</context>
<context>
    <name>JobSource</name>
    <message>
        <source>its numbers cannot be kept: give the drawing as a file</source>
        <translation>无法保存它的编号：请以文件给出图纸</translation>
    </message>
    <message>
        <source>its numbers cannot be kept: the file is read-only</source>
        <translation>无法保存它的编号：文件是只读的</translation>
    </message>
    <message>
        <source>warning: another program changed it meanwhile; its next numbers stand in &quot;%1&quot;, and the next job goes on after them</source>
        <translation>警告：期间它被其他程序更改；其后续编号记在“%1”中，下一个作业会接着往下</translation>
    </message>
    <message>
        <source>waiting for another job</source>
        <translation>正在等待另一个作业</translation>
    </message>
    <message>
        <source>another job takes numbers of it, as &quot;%1&quot; says: try again afterwards</source>
        <translation>如“%1”所示，另一个作业正在取用它的编号：请稍后再试</translation>
    </message>
    <message>
        <source>its numbers cannot be kept: its folder is read-only</source>
        <translation>无法保存它的编号：文件夹是只读的</translation>
    </message>
    <message>
        <source>the serial number of &quot;%1&quot; is used up: %2 was the last</source>
        <translation>“%1”的序列号已用完：最后一个是 %2</translation>
    </message>
    <message>
        <source>the serial number ends after part %1 of %2</source>
        <translation>序列号在第 %1 个工件后用完（共 %2 个）</translation>
    </message>
    <message>
        <source>writing %1</source>
        <translation>正在写入 %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告：%1</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
    <message>
        <source>its numbers cannot be kept: %1</source>
        <translation>无法保存其编号：%1</translation>
    </message>
    <message>
        <source>warning: a job that was interrupted took %1; the numbers of the drawing were changed since</source>
        <translation>警告：被中断的作业取用了 %1；其后图纸的编号已被修改</translation>
    </message>
    <message>
        <source>warning: a job that was interrupted took %1; they are passed over, for its files may have been run</source>
        <translation>警告：被中断的作业取用了 %1；这些编号将被跳过，因为那些文件可能已被运行</translation>
    </message>
    <message>
        <source>warning: its pens cannot be read: %1</source>
        <translation>警告：无法读取其中的笔：%1</translation>
    </message>
</context>
<context>
    <name>MarkCommand</name>
    <message>
        <source>not for a drawing, which has its own layout and hatch</source>
        <translation>不适用于图纸，图纸自带布局和填充</translation>
    </message>
    <message>
        <source>ordering</source>
        <translation>正在排序</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告：%1</translation>
    </message>
    <message>
        <source>Mark a drawing also where its shapes reach out of its work area</source>
        <translation>即使图形超出工作区也标刻图纸</translation>
    </message>
    <message>
        <source>nothing written: shapes outside the work area are marked with --outside alone</source>
        <translation>未写入任何文件：只有加上 --outside 才标刻超出工作区的图形</translation>
    </message>
    <message>
        <source>Turn SVG, DXF and plotter drawings, or a drawing, into mark paths</source>
        <translation>把 SVG、DXF 和绘图仪图纸，或一个图纸，变成标刻路径</translation>
    </message>
    <message>
        <source>Lengths take mm (the default), cm or in: 0.5, 0.5mm, 2cm, 1in. Angles are degrees,
clockwise. SVG, DXF and plotter drawings come in at true size unless --size, --width,
--height, --unit or --scale says otherwise. Several stand side by side, a gap apart;
one that cannot be read is told, and the others go on. Open outlines are not hatched
unless --fill-open is given. Hatch lines keep their spacing and their angle whatever the
scale and the rotation.

--clean join=0.05mm,duplicates,zero joins ends so near to each other, and removes what
is drawn twice or has no length; weld makes one outline of those that overlap, simplify
and arcs save points, order makes the jumps shorter.

Limits: drawings of 256 MiB, 1,000,000 objects, 1,000,000 hatch lines over a drawing,
20,000,000 points and hatch segments in all.

A drawing, .ztd, is marked as it was saved, in its own order unless --order says another.
Options that lay out, hatch, scale, turn or mend other files are not for it.

Examples:
  ztmark mark plate.ztd -o plate.json
  ztmark mark logo.plt --height 20mm --hatch zigzag --spacing 0.3mm -o logo.svg
  ztmark mark part.dxf --clean join=0.05mm,duplicates --marks-only -o part.svg</source>
        <translation>长度可用 mm（默认）、cm 或 in：0.5、0.5mm、2cm、1in。角度以度为单位，顺时针。
SVG、DXF 和绘图仪图纸按真实尺寸导入，除非 --size、--width、--height、--unit 或
--scale 另有规定。多个图纸并排放置，留有间隔；无法读取的会说明，其余继续。
未闭合的轮廓不填充，除非给出 --fill-open。无论缩放和旋转，填充线保持其间距和角度。

--clean join=0.05mm,duplicates,zero 连接相距如此近的端点，并去除画了两次或没有长度的
内容；weld 把重叠的轮廓合为一个，simplify 和 arcs 减少点数，order 缩短空跳。

限制：图纸 256 MiB，1,000,000 个对象，每个图纸 1,000,000 条填充线，
总共 20,000,000 个点和填充线段。

图纸 .ztd 按保存的样子标刻，使用它自己的顺序，除非 --order 另有规定。
排布、填充、缩放、旋转或修复其他文件的选项不适用于它。

示例：
  ztmark mark plate.ztd -o plate.json
  ztmark mark logo.plt --height 20mm --hatch zigzag --spacing 0.3mm -o logo.svg
  ztmark mark part.dxf --clean join=0.05mm,duplicates --marks-only -o part.svg</translation>
    </message>
    <message>
        <source>Mark also what does not show what it was given, such as a code that cannot
hold its content</source>
        <translation>对显示的不是所给内容的图形也打标，
例如无法容纳其内容的码</translation>
    </message>
    <message>
        <source>nothing written: what does not show what it was given is marked with --as-shown alone</source>
        <translation>未写出任何内容：显示的不是所给内容的图形只有用 --as-shown 才打标</translation>
    </message>
</context>
<context>
    <name>OpenedDrawing</name>
    <message>
        <source>warning: shapes of kinds that this program does not know are neither shown nor marked (%1)</source>
        <translation>警告：本程序不认识的图形既不显示也不打标（%1）</translation>
    </message>
    <message>
        <source>reading %1</source>
        <translation>正在读取 %1</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>无法打开：%1</translation>
    </message>
    <message>
        <source>not readable: it %1</source>
        <translation>不可读：该文件 %1</translation>
    </message>
    <message>
        <source>not readable: %1</source>
        <translation>不可读：%1</translation>
    </message>
    <message>
        <source>not saved: %1</source>
        <translation>未保存：%1</translation>
    </message>
    <message>
        <source>cannot be loaded: %1</source>
        <translation>无法载入：%1</translation>
    </message>
    <message>
        <source>warning: these fonts are missing, and texts in them look and mark differently: %1</source>
        <translation>警告：缺少以下字体，使用这些字体的文字外观和标刻结果会不同：%1</translation>
    </message>
</context>
<context>
    <name>ProfileCommand</name>
    <message>
        <source>List, show and check machine profiles</source>
        <translation>列出、显示和检查机器配置</translation>
    </message>
    <message>
        <source>The profiles on board</source>
        <translation>自带的配置</translation>
    </message>
    <message>
        <source>Print a profile as JSON, as a start for one&apos;s own</source>
        <translation>以 JSON 打印配置，可作为自己配置的起点</translation>
    </message>
    <message>
        <source>Say whether a profile is without fault</source>
        <translation>说明配置是否没有错误</translation>
    </message>
    <message>
        <source>A name on board, or a file</source>
        <translation>自带配置的名称，或一个文件</translation>
    </message>
    <message>
        <source>%1: without fault</source>
        <translation>%1：没有错误</translation>
    </message>
    <message>
        <source>galvo head</source>
        <translation>振镜</translation>
    </message>
    <message>
        <source>gantry</source>
        <translation>龙门架</translation>
    </message>
    <message>
        <source>%1, field of %2 x %3 mm</source>
        <translation>%1，幅面 %2 x %3 mm</translation>
    </message>
</context>
<context>
    <name>RenderCommand</name>
    <message>
        <source>&quot;%1&quot; must end in one of %2</source>
        <translation>“%1”必须以 %2 之一结尾</translation>
    </message>
    <message>
        <source>Make a picture of a drawing</source>
        <translation>生成图纸的图片</translation>
    </message>
    <message>
        <source>The picture, .png or .svg</source>
        <translation>图片，.png 或 .svg</translation>
    </message>
    <message>
        <source>Longer side of a .png in pixels, 16 to 8192</source>
        <translation>.png 长边的像素数，16 到 8192</translation>
    </message>
    <message>
        <source>an .svg has no pixels, its size is that of the drawing</source>
        <translation>.svg 没有像素，其大小就是图纸的大小</translation>
    </message>
    <message>
        <source>A .png shows the shapes as the studio does, in the colours of their pens, without grid,
frame and selection. An .svg shows what is marked, true to size in millimetres: the
picture that ztmark mark writes. SVG, DXF and plotter drawings are shown as convert
takes them in.

Examples:
  ztmark render plate.ztd --size 2000 -o plate.png
  ztmark render part.dxf -o part.png</source>
        <translation>.png 按图纸工作室的样子显示图形，使用各自笔的颜色，不含网格、外框和选择。
.svg 显示标刻的内容，以毫米为单位、尺寸真实：即 ztmark mark 写出的图片。
SVG、DXF 和绘图仪图纸按 convert 导入的样子显示。

示例：
  ztmark render plate.ztd --size 2000 -o plate.png
  ztmark render part.dxf -o part.png</translation>
    </message>
</context>
<context>
    <name>TextCommand</name>
    <message>
        <source>and %1 more</source>
        <translation>以及另外 %1 个</translation>
    </message>
    <message>
        <source>Turn texts into ordered mark paths</source>
        <translation>把文字变成有序的标刻路径</translation>
    </message>
    <message>
        <source>Several texts stand side by side, a gap apart, each one object. In a text, \n begins a new
line, {serial} or {} is the place of the serial number and {date} or {date:yyyy-MM-dd}
that of the date; \\ is a backslash and \{ a brace.

Stroke fonts are drawn in single strokes and are not hatched. On an arc the letters of a
stroke font hang by their upper left corners, each height of letter from a circle of its
own; those of a system font are centred on one circle. --order x-min also brings the
strokes of a text in order from left to right.

With --count, part 3 of OUT.svg is written to OUT-0003.svg.

Examples:
  ztmark text &quot;ABC 123&quot; --font-pair hershey-simplex.shx,gb-strokes.shx -o abc.svg
  ztmark text &quot;SN-{serial}&quot; --serial start=1,width=4 --count 50 -o sn.svg</source>
        <translation>多个文字并排放置，相隔一个间距，各为一个对象。文字中 \n 开始新行，{serial} 或 {} 是序列号的位置，
{date} 或 {date:yyyy-MM-dd} 是日期的位置；\\ 表示反斜杠，\{ 表示花括号。

单线字体以单线绘制，不能填充。在圆弧上，单线字体的字母以左上角挂在圆上，每种字母高度各有自己的圆；
系统字体的字母居中于同一个圆。--order x-min 还会把文字的笔画从左到右排序。

使用 --count 时，OUT.svg 的第 3 份写入 OUT-0003.svg。

示例：
  ztmark text &quot;ABC 123&quot; --font-pair hershey-simplex.shx,gb-strokes.shx -o abc.svg
  ztmark text &quot;SN-{serial}&quot; --serial start=1,width=4 --count 50 -o sn.svg</translation>
    </message>
    <message>
        <source>Texts to mark</source>
        <translation>要标刻的文字</translation>
    </message>
    <message>
        <source>Space added between characters</source>
        <translation>字符之间增加的间距</translation>
    </message>
    <message>
        <source>Space between a line and the base line of the next, letters left
out; 0.3 of the height else</source>
        <translation>一行与下一行基线之间除字母外的间距；缺省为高度的 0.3</translation>
    </message>
    <message>
        <source>Run the text along a circle of this diameter</source>
        <translation>文字沿此直径的圆排列</translation>
    </message>
    <message>
        <source>Where the arc starts, 0 is three o&apos;clock; else it is centred at the
top</source>
        <translation>圆弧的起始角，0 为三点钟方向；缺省以顶部为中心</translation>
    </message>
    <message>
        <source>Angle that the characters share, -360 to 360, positive is clockwise</source>
        <translation>字符分享的角度，-360 到 360，正值为顺时针</translation>
    </message>
    <message>
        <source>Serial number: start=1,step=1,last=99,width=4,base=10 or some of them;
base 16 and 26 (letters) too. Without a place for it, it ends the last
text</source>
        <translation>序列号：start=1,step=1,last=99,width=4,base=10 或其中几项；
base 也可以是 16 和 26（字母）。没有给出位置时放在最后一个文字末尾</translation>
    </message>
    <message>
        <source>Write so many parts, 1 to 10000, each with its own number</source>
        <translation>写出的份数，1 到 10000，每份有自己的序列号</translation>
    </message>
    <message>
        <source>stroke fonts are not hatched</source>
        <translation>单线字体不能填充</translation>
    </message>
    <message>
        <source>nothing without --arc</source>
        <translation>没有 --arc 就不起作用</translation>
    </message>
    <message>
        <source>nothing on an arc, --arc-span spreads the text</source>
        <translation>在圆弧上不起作用，用 --arc-span 展开文字</translation>
    </message>
    <message>
        <source>nothing on an arc, its text is one line</source>
        <translation>在圆弧上不起作用，圆弧文字只有一行</translation>
    </message>
    <message>
        <source>all parts would be the same without --serial or {serial}</source>
        <translation>没有 --serial 或 {serial}，所有份都会相同</translation>
    </message>
    <message>
        <source>has more than %1 places</source>
        <translation>有超过 %1 个位置</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is named twice</source>
        <translation>“%1”给出了两次</translation>
    </message>
    <message>
        <source>the serial number ends after part %1 of %2</source>
        <translation>序列号在第 %1 份后用完，需要 %2 份</translation>
    </message>
    <message>
        <source>part %1 of %2</source>
        <translation>第 %1 份，共 %2 份</translation>
    </message>
    <message>
        <source>warning: not among the characters of stroke fonts, marked as &quot;?&quot;: %1</source>
        <translation>警告：不属于单线字体的字符，标刻为“?”：%1</translation>
    </message>
    <message>
        <source>warning: the font has no glyph for %1</source>
        <translation>警告：字体没有以下字符的字形：%1</translation>
    </message>
    <message>
        <source>Parts:</source>
        <translation>份数：</translation>
    </message>
    <message>
        <source>First part:</source>
        <translation>第一份：</translation>
    </message>
    <message>
        <source>Last part:</source>
        <translation>最后一份：</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>尺寸：</translation>
    </message>
    <message>
        <source>%1 x %2 mm</source>
        <translation>%1 x %2 mm</translation>
    </message>
    <message>
        <source>Text height: how high capital letters are</source>
        <translation>字高：大写字母的高度</translation>
    </message>
</context>
<context>
    <name>WorkLimits</name>
    <message>
        <source>too much work: %1 %2, the limit is %3</source>
        <translation>工作量过大：%1 %2，上限为 %3</translation>
    </message>
    <message>
        <source>hatch lines over the drawing</source>
        <translation>条覆盖图纸的填充线</translation>
    </message>
    <message>
        <source>hatch segments</source>
        <translation>条填充线段</translation>
    </message>
    <message>
        <source>objects</source>
        <translation>个对象</translation>
    </message>
    <message>
        <source>points and hatch segments</source>
        <translation>个点和填充线段</translation>
    </message>
</context>
<context>
    <name>machinefiles</name>
    <message>
        <source>no such file</source>
        <translation>没有这个文件</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>neither a file nor a profile on board, which are %1</source>
        <translation>既不是文件也不是自带的配置，自带的有 %1</translation>
    </message>
</context>
<context>
    <name>ztmark</name>
    <message>
        <source>Turns drawings, SVG, DXF and plotter files and texts into mark paths and jobs.</source>
        <translation>把图纸、SVG、DXF、绘图仪文件和文字变成标刻路径和作业。</translation>
    </message>
</context>
<context>
    <name>CodeArguments</name>
    <message>
        <source>&quot;%1&quot; is none of %2&apos;s: %3</source>
        <translation>&quot;%1&quot; 不是 %2 的等级：%3</translation>
    </message>
    <message>
        <source>%1 has bars, which are no dots</source>
        <translation>%1 由条组成，不能是点</translation>
    </message>
    <message>
        <source>%1 has no bars, it is as high as its modules</source>
        <translation>%1 没有条，其高度由模块决定</translation>
    </message>
    <message>
        <source>A Data Matrix that is not square</source>
        <translation>非正方形的 Data Matrix</translation>
    </message>
    <message>
        <source>Add the check digit that Code 39, Codabar and i25 may have</source>
        <translation>加上 Code 39、Codabar 和 i25 可选的校验位</translation>
    </message>
    <message>
        <source>Character set that the code names: auto, utf8, or gbk for Chinese</source>
        <translation>条码注明的字符集：auto、utf8，或用于中文的 gbk</translation>
    </message>
    <message>
        <source>Columns of PDF417, 1 to 30, or Micro PDF417, 1 to 4</source>
        <translation>PDF417 的列数 1 到 30，Micro PDF417 的 1 到 4</translation>
    </message>
    <message>
        <source>Diameter of a dot in % of the module, 1 to 100</source>
        <translation>圆点直径占模块的百分比，1 到 100</translation>
    </message>
    <message>
        <source>Error correction: L, M, Q or H in QR codes, 1 to 4 in Aztec, 1 to
9 in PDF417</source>
        <translation>纠错等级：QR 码为 L、M、Q 或 H，Aztec 为 1 到 4，
PDF417 为 1 到 9</translation>
    </message>
    <message>
        <source>Height of its capital letters</source>
        <translation>其大写字母的高度</translation>
    </message>
    <message>
        <source>Height of the bars of a bar code</source>
        <translation>一维条码中条的高度</translation>
    </message>
    <message>
        <source>In the content, \G \R \E \xHH and others are control characters</source>
        <translation>内容中的 \G \R \E \xHH 等是控制字符</translation>
    </message>
    <message>
        <source>Mark what is light, for dark material</source>
        <translation>标刻浅色部分，用于深色材料</translation>
    </message>
    <message>
        <source>Mask of a QR code, 0 to 7, or Micro QR, 0 to 3; else the best</source>
        <translation>QR 码的掩模 0 到 7，Micro QR 的 0 到 3；否则取最好的</translation>
    </message>
    <message>
        <source>Size by its number in the symbology; else the smallest</source>
        <translation>按码制中的编号选择尺寸；缺省取最小</translation>
    </message>
    <message>
        <source>Space added between its characters</source>
        <translation>字符之间增加的间距</translation>
    </message>
    <message>
        <source>Text for people: none, above or below the code</source>
        <translation>供人识读的文字：none 无、above 在码上方或 below 在码下方</translation>
    </message>
    <message>
        <source>What is marked: merged (outlines of dark areas), squares, dots, points
(one a module), bars or lines</source>
        <translation>标刻什么：merged（深色区域的轮廓）、squares、dots、points
（每个模块一个）、bars 或 lines</translation>
    </message>
    <message>
        <source>Width of a module, the narrowest bar</source>
        <translation>模块的宽度，即最窄条的宽度</translation>
    </message>
    <message>
        <source>Width of the beam, taken off each dark area</source>
        <translation>光束宽度，从每个深色区域中减去</translation>
    </message>
    <message>
        <source>Width of the code without its quiet zone</source>
        <translation>条码的宽度，不含静区</translation>
    </message>
    <message>
        <source>cannot be given together with --module</source>
        <translation>不能与 --module 同时给出</translation>
    </message>
    <message>
        <source>cannot be given together with --size</source>
        <translation>不能与 --size 同时给出</translation>
    </message>
    <message>
        <source>nothing without --style dots</source>
        <translation>没有 --style dots 就没有作用</translation>
    </message>
    <message>
        <source>nothing without --text</source>
        <translation>没有 --text 时无作用</translation>
    </message>
    <message>
        <source>single lines, points and stroke fonts have no hatch</source>
        <translation>单线、点和单线字体没有填充</translation>
    </message>
</context>
<context>
    <name>FontArguments</name>
    <message>
        <source>&quot;%1&quot; names no font</source>
        <translation>“%1”没有字体名称</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no font, write REGULAR.shx,BIG.shx</source>
        <translation>“%1”没有字体名称，请写 常规字体.shx,大字体.shx</translation>
    </message>
    <message>
        <source>Family of a system font; else the system&apos;s usual font</source>
        <translation>系统字体名称；缺省为系统常用字体</translation>
    </message>
    <message>
        <source>Stroke fonts, the big one for Chinese; without it the first one found</source>
        <translation>单线字体，大字体用于汉字；不写大字体则取找到的第一个</translation>
    </message>
    <message>
        <source>cannot be given together with --font-pair</source>
        <translation>不能与 --font-pair 同时给出</translation>
    </message>
    <message>
        <source>no system font %1, ztmark font list --system tells them</source>
        <translation>没有系统字体 %1，可用 ztmark font list --system 查看</translation>
    </message>
</context>
</TS>
