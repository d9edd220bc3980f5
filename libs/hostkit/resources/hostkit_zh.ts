<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>hostkit::DrawingImport</name>
    <message>
        <source>font &quot;%1&quot;, which is not installed here: &quot;%2&quot; stands in for it</source>
        <translation>字体“%1”，这里没有安装：由“%2”代替</translation>
    </message>
</context>
<context>
    <name>hostkit::DrawingInput</name>
    <message>
        <source>cannot be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>是文件夹</translation>
    </message>
    <message>
        <source>larger than %1 MiB, the limit for a drawing</source>
        <translation>大于图纸上限 %1 MiB</translation>
    </message>
    <message>
        <source>holds binary data, not a plotter drawing</source>
        <translation>内容是二进制数据，不是绘图仪图纸</translation>
    </message>
    <message>
        <source>nothing to draw: all points lie at one height</source>
        <translation>没有可绘制的内容：所有点在同一高度</translation>
    </message>
    <message>
        <source>no plotter drawing: not one PU or PD line with a point</source>
        <translation>不是绘图仪图纸：没有一行 PU 或 PD 带有坐标点</translation>
    </message>
    <message>
        <source>nothing to draw: no PD line leads from one point to another</source>
        <translation>没有可绘制的内容：没有 PD 行从一点画到另一点</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>is no file name</source>
        <translation>不是文件名</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>是空文件</translation>
    </message>
    <message>
        <source>no room for a temporary copy: %1</source>
        <translation>没有空间存放临时副本：%1</translation>
    </message>
</context>
<context>
    <name>hostkit::DrawingPicture</name>
    <message>
        <source>no room for the picture</source>
        <translation>内存不足，无法生成图片</translation>
    </message>
    <message>
        <source>nothing to draw</source>
        <translation>没有可绘制的内容</translation>
    </message>
</context>
<context>
    <name>hostkit::FontCheck</name>
    <message>
        <source>its font is not here: %1</source>
        <translation>本机没有它的字体：%1</translation>
    </message>
</context>
<context>
    <name>hostkit::FontSheet</name>
    <message>
        <source>the font has no glyphs</source>
        <translation>该字体没有字形</translation>
    </message>
</context>
<context>
    <name>hostkit::MarkGraphWriter</name>
    <message>
        <source>unknown form, the name must end in one of %1</source>
        <translation>未知格式，文件名必须以 %1 之一结尾</translation>
    </message>
</context>
<context>
    <name>hostkit::MarkLayout</name>
    <message>
        <source>there is nothing to mark</source>
        <translation>没有可标刻的内容</translation>
    </message>
    <message>
        <source>too much work: %1 %2, the limit is %3</source>
        <translation>工作量过大：%1 %2，上限为 %3</translation>
    </message>
    <message>
        <source>ordering</source>
        <translation>正在排序</translation>
    </message>
    <message>
        <source>preparing outlines</source>
        <translation>正在准备轮廓</translation>
    </message>
    <message>
        <source>copying</source>
        <translation>正在复制</translation>
    </message>
    <message>
        <source>hatching</source>
        <translation>正在填充</translation>
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
    <message>
        <source>no factory for drawings is registered</source>
        <translation>没有注册图纸工厂</translation>
    </message>
    <message>
        <source>nothing to mark: the text leaves no strokes</source>
        <translation>没有可标刻的内容：文字没有笔画</translation>
    </message>
</context>
<context>
    <name>hostkit::ShxFontInfo</name>
    <message>
        <source>is no stroke font</source>
        <translation>不是单线字体</translation>
    </message>
    <message>
        <source>is too large for a stroke font</source>
        <translation>对单线字体来说文件过大</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>the index ends after %1 of %2 records</source>
        <translation>索引在第 %1 条记录后中断，应有 %2 条</translation>
    </message>
    <message>
        <source>the font information is cut short</source>
        <translation>字体信息不完整</translation>
    </message>
    <message>
        <source>the ascender is 0: the font has no size</source>
        <translation>上高为 0：字体没有大小</translation>
    </message>
    <message>
        <source>glyph %1 stands there once more, this one is never drawn</source>
        <translation>字形 %1 重复出现，后一个不会被绘制</translation>
    </message>
    <message>
        <source>glyph %1 reaches beyond the end of the file</source>
        <translation>字形 %1 超出文件末尾</translation>
    </message>
    <message>
        <source>glyph %1 is nothing but a name without an end</source>
        <translation>字形 %1 只有一个没有结尾的名称</translation>
    </message>
    <message>
        <source>range %1 of lead bytes is empty</source>
        <translation>第 %1 个首字节范围为空</translation>
    </message>
</context>
<context>
    <name>hostkit::StrokeFont</name>
    <message>
        <source>%1 is no stroke font</source>
        <translation>%1 不是单线字体</translation>
    </message>
    <message>
        <source>no stroke font %1 in %2</source>
        <translation>在 %2 中没有单线字体 %1</translation>
    </message>
    <message>
        <source>%1 is a big font, no regular one</source>
        <translation>%1 是大字体，不是常规字体</translation>
    </message>
    <message>
        <source>no big font in %1</source>
        <translation>在 %1 中没有大字体</translation>
    </message>
    <message>
        <source>%1 is a regular font, no big one</source>
        <translation>%1 是常规字体，不是大字体</translation>
    </message>
    <message>
        <source>%1 has no &quot;%2&quot;, by whose width fonts are brought to a height</source>
        <translation>%1 没有“%2”，而字体高度由它的宽度确定</translation>
    </message>
</context>
<context>
    <name>hostkit::DrawingCapture</name>
    <message>
        <source>its millimetres have no size</source>
        <translation>其毫米没有大小</translation>
    </message>
    <message>
        <source>needs more memory than there is</source>
        <translation>所需内存超过可用内存</translation>
    </message>
    <message>
        <source>object %1 is of no kind</source>
        <translation>对象 %1 没有类型</translation>
    </message>
    <message>
        <source>the drawing could not be loaded again: %1</source>
        <translation>该图纸将无法再次载入：%1</translation>
    </message>
</context>
<context>
    <name>hostkit::DrawingFile</name>
    <message>
        <source>%1 at byte %2 of the drawing&apos;s data</source>
        <translation>%1（图纸数据第 %2 字节处）</translation>
    </message>
    <message>
        <source>%1 bytes follow its end</source>
        <translation>结尾之后还有 %1 个字节</translation>
    </message>
    <message>
        <source>%1, object %2</source>
        <translation>%1，对象 %2</translation>
    </message>
    <message>
        <source>a count of %1</source>
        <translation>数目为 %1</translation>
    </message>
    <message>
        <source>a section is longer than the file</source>
        <translation>有一个区段比文件还长</translation>
    </message>
    <message>
        <source>a text too long</source>
        <translation>文本过长</translation>
    </message>
    <message>
        <source>an object of kind %1</source>
        <translation>类型为 %1 的对象</translation>
    </message>
    <message>
        <source>an unknown variant text</source>
        <translation>未知的可变文本</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>cannot be written: the drawing is larger than %1 MiB</source>
        <translation>无法写入：图纸大于 %1 MiB</translation>
    </message>
    <message>
        <source>half a character</source>
        <translation>只有半个字符</translation>
    </message>
    <message>
        <source>holds data of stream version %1, this program reads %2</source>
        <translation>包含流版本 %1 的数据，本程序读取版本 %2</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>是文件夹</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>是空文件</translation>
    </message>
    <message>
        <source>is no ordinary file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>is not a drawing</source>
        <translation>不是图纸</translation>
    </message>
    <message>
        <source>it ends after %1 bytes</source>
        <translation>在 %1 个字节后结束</translation>
    </message>
    <message>
        <source>it ends after %1 of %2 bytes</source>
        <translation>在 %2 个字节中的第 %1 个之后结束</translation>
    </message>
    <message>
        <source>it ends early</source>
        <translation>提前结束</translation>
    </message>
    <message>
        <source>it has no section %1</source>
        <translation>缺少区段 %1</translation>
    </message>
    <message>
        <source>it has only one of the sections REST and PLOT</source>
        <translation>REST 和 PLOT 两个区段只有其一</translation>
    </message>
    <message>
        <source>it has two sections %1</source>
        <translation>有两个 %1 区段</translation>
    </message>
    <message>
        <source>its header does not match its checksum</source>
        <translation>文件头与校验和不符</translation>
    </message>
    <message>
        <source>its millimetres have no size</source>
        <translation>其毫米没有大小</translation>
    </message>
    <message>
        <source>its sections end before the file</source>
        <translation>区段在文件结尾之前结束</translation>
    </message>
    <message>
        <source>larger than %1 MiB, the limit for a drawing</source>
        <translation>大于图纸上限 %1 MiB</translation>
    </message>
    <message>
        <source>more than it announces</source>
        <translation>内容比所声明的多</translation>
    </message>
    <message>
        <source>needs more memory than there is</source>
        <translation>所需内存超过可用内存</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>object %1 is out of step</source>
        <translation>对象 %1 的数据错位</translation>
    </message>
    <message>
        <source>section %1 does not match its checksum</source>
        <translation>区段 %1 与校验和不符</translation>
    </message>
    <message>
        <source>section %1 is out of step</source>
        <translation>区段 %1 的数据错位</translation>
    </message>
    <message>
        <source>section REST is not about its objects</source>
        <translation>区段 REST 与其对象不对应</translation>
    </message>
    <message>
        <source>section REST is out of step</source>
        <translation>区段 REST 的数据错位</translation>
    </message>
    <message>
        <source>the drawing is damaged: %1</source>
        <translation>图纸已损坏：%1</translation>
    </message>
    <message>
        <source>was saved by a newer version of the program (file format %1, this program reads %2)</source>
        <translation>由更新版本的程序保存（文件格式 %1，本程序读取 %2）</translation>
    </message>
</context>
<context>
    <name>hostkit::DrawingLoader</name>
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>cannot be built</source>
        <translation>无法构建</translation>
    </message>
    <message>
        <source>cannot be built: %1</source>
        <translation>无法构建：%1</translation>
    </message>
    <message>
        <source>holds more than %1 points and hatch lines</source>
        <translation>包含超过 %1 个点和填充线</translation>
    </message>
    <message>
        <source>needs more memory than there is</source>
        <translation>所需内存超过可用内存</translation>
    </message>
</context>
<context>
    <name>hostkit::FileWriter</name>
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation>无法写入：%1</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>是文件夹</translation>
    </message>
    <message>
        <source>is no file name</source>
        <translation>不是文件名</translation>
    </message>
    <message>
        <source>is no ordinary file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>the file is write-protected</source>
        <translation>文件有写保护</translation>
    </message>
    <message>
        <source>the folder does not exist</source>
        <translation>文件夹不存在</translation>
    </message>
    <message>
        <source>the picture could not be made</source>
        <translation>无法生成图片</translation>
    </message>
</context>
<context>
    <name>hostkit::MarkFindings</name>
    <message>
        <source>, </source>
        <translation>、</translation>
    </message>
    <message>
        <source>%1 (x %2 to %3, y %4 to %5 mm)</source>
        <translation>%1（x %2 到 %3，y %4 到 %5 mm）</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1，另有 %2 个</translation>
    </message>
    <message>
        <source>TDOT figure %1</source>
        <translation>TDOT 图形 %1</translation>
    </message>
    <message>
        <source>outlines that are marked twice: %1</source>
        <translation>被标刻两次的轮廓：%1</translation>
    </message>
    <message>
        <source>outlines without any length: %1</source>
        <translation>没有长度的轮廓：%1</translation>
    </message>
    <message>
        <source>outside the work area: %1</source>
        <translation>超出工作区：%1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>a coordinate is no number</source>
        <translation>有坐标不是数字</translation>
    </message>
    <message>
        <source>shown otherwise than asked for: %1</source>
        <translation>显示的与要求的不符：%1</translation>
    </message>
    <message>
        <source>Bar code %1</source>
        <translation>条形码 %1</translation>
    </message>
    <message>
        <source>Code %1</source>
        <translation>码 %1</translation>
    </message>
    <message>
        <source>Ellipse %1</source>
        <translation>椭圆 %1</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>直线 %1</translation>
    </message>
    <message>
        <source>Path %1</source>
        <translation>路径 %1</translation>
    </message>
    <message>
        <source>Polygon %1</source>
        <translation>多边形 %1</translation>
    </message>
    <message>
        <source>Rectangle %1</source>
        <translation>矩形 %1</translation>
    </message>
    <message>
        <source>Shape %1</source>
        <translation>图形 %1</translation>
    </message>
    <message>
        <source>Text %1</source>
        <translation>文字 %1</translation>
    </message>
</context>
<context>
    <name>hostkit::TextItem</name>
    <message>
        <source>characters missing in its stroke fonts: %1</source>
        <translation>其单线字体缺少这些字符：%1</translation>
    </message>
</context>
</TS>
