<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>vectorkit</name>
    <message>
        <source>Choose HP-GL in the program or driver that writes the file.</source>
        <translation>请在生成该文件的程序或驱动中选择 HP-GL。</translation>
    </message>
    <message>
        <source>DXF drawings are not read.</source>
        <translation>不读取 DXF 图形。</translation>
    </message>
    <message>
        <source>Drawings are read as HP-GL, SVG and DXF.</source>
        <translation>可读取 HP-GL、SVG 和 DXF 图形。</translation>
    </message>
    <message>
        <source>HP-GL drawings are not read.</source>
        <translation>不读取 HP-GL 图形。</translation>
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
        <source>Pixels have no outlines: trace it in a drawing program and save that as SVG.</source>
        <translation>像素没有轮廓：请在绘图程序中描摹，再保存为 SVG。</translation>
    </message>
    <message>
        <source>Plot the layer as DXF, SVG or HP-GL in the board program.</source>
        <translation>请在电路板程序中将该层输出为 DXF、SVG 或 HP-GL。</translation>
    </message>
    <message>
        <source>SVG drawings are not read.</source>
        <translation>不读取 SVG 图形。</translation>
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
        <source>Take the drawing it was made from.</source>
        <translation>请使用生成它的图形。</translation>
    </message>
    <message>
        <source>Take the drawing itself: SVG, DXF or HP-GL.</source>
        <translation>请使用图形本身：SVG、DXF 或 HP-GL。</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>无法读取文件：%1</translation>
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
        <source>There is no such file.</source>
        <translation>文件不存在。</translation>
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
        <source>This is compressed (gzip), as .svgz files are.</source>
        <translation>这是压缩文件（gzip），例如 .svgz 文件。</translation>
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
</context>
</TS>
