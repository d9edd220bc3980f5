<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
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
    <name>hostkit::WholeFile</name>
    <message>
        <source>cannot be written: %1</source>
        <translation>无法写入：%1</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>是文件夹</translation>
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
        <source>ellipse %1</source>
        <translation>椭圆 %1</translation>
    </message>
    <message>
        <source>imported drawing %1</source>
        <translation>导入的图纸 %1</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>直线 %1</translation>
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
        <source>polygon %1</source>
        <translation>多边形 %1</translation>
    </message>
    <message>
        <source>rectangle %1</source>
        <translation>矩形 %1</translation>
    </message>
    <message>
        <source>shape %1</source>
        <translation>图形 %1</translation>
    </message>
    <message>
        <source>text %1</source>
        <translation>文字 %1</translation>
    </message>
</context>
</TS>
