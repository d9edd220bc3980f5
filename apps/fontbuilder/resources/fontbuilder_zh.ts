<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>FontFiles</name>
    <message>
        <source>is a folder</source>
        <translation>是文件夹</translation>
    </message>
    <message>
        <source>is larger than 1 GiB</source>
        <translation>大于 1 GiB</translation>
    </message>
    <message>
        <source>is no folder, and none can be made</source>
        <translation>不是文件夹，也无法创建</translation>
    </message>
    <message>
        <source>is the input, too</source>
        <translation>同时也是输入文件</translation>
    </message>
</context>
<context>
    <name>InfoCommand</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 到 %2</translation>
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
        <source>Codes:</source>
        <translation>编码：</translation>
    </message>
    <message>
        <source>Form:</source>
        <translation>格式：</translation>
    </message>
    <message>
        <source>Glyphs:</source>
        <translation>字形：</translation>
    </message>
    <message>
        <source>Lead bytes:</source>
        <translation>首字节：</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>名称：</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Font file; - reads standard input</source>
        <translation>字体文件；- 表示读取标准输入</translation>
    </message>
    <message>
        <source>Font information:</source>
        <translation>字体信息：</translation>
    </message>
    <message>
        <source>Modes:</source>
        <translation>方式：</translation>
    </message>
    <message>
        <source>Other records:</source>
        <translation>其他记录：</translation>
    </message>
    <message>
        <source>Program bytes:</source>
        <translation>程序字节数：</translation>
    </message>
    <message>
        <source>Repeated codes are dead: the first glyph of a code counts. Other records are entries
of the index without a glyph of their own, as a rule empty ones.</source>
        <translation>重复编码无效：同一编码以第一个字形为准。其他记录是索引中没有自己字形的条目，
一般是空条目。</translation>
    </message>
    <message>
        <source>Repeated codes:</source>
        <translation>重复编码：</translation>
    </message>
    <message>
        <source>Tell what is in a font file</source>
        <translation>说明字体文件的内容</translation>
    </message>
</context>
<context>
    <name>CompileCommand</name>
    <message>
        <source>Font file to write; - for standard output</source>
        <translation>要写入的字体文件；- 表示标准输出</translation>
    </message>
    <message>
        <source>Make a font file from its source text</source>
        <translation>由源文本生成字体文件</translation>
    </message>
    <message>
        <source>Source text of a font; - reads standard input</source>
        <translation>字体的源文本；- 表示读取标准输入</translation>
    </message>
    <message>
        <source>docs/formats/font-source.md tells how a source is written; decompile shows it of any font.</source>
        <translation>docs/formats/font-source.md 说明源文本的写法；decompile 可显示任一字体的源文本。</translation>
    </message>
</context>
<context>
    <name>DecompileCommand</name>
    <message>
        <source>Font file; - reads standard input</source>
        <translation>字体文件；- 表示读取标准输入</translation>
    </message>
    <message>
        <source>Make the source text of a font file</source>
        <translation>由字体文件生成源文本</translation>
    </message>
    <message>
        <source>Source text to write instead of standard output</source>
        <translation>要写入的源文本文件，代替标准输出</translation>
    </message>
</context>
<context>
    <name>GbCommand</name>
    <message>
        <source>Folder to write the font into</source>
        <translation>写入字体的文件夹</translation>
    </message>
    <message>
        <source>Folder with the .jhf files, for full-width forms</source>
        <translation>存放 .jhf 文件的文件夹，用于全角字符</translation>
    </message>
    <message>
        <source>Folder with the .json files of hanzi-writer-data</source>
        <translation>存放 hanzi-writer-data 的 .json 文件的文件夹</translation>
    </message>
    <message>
        <source>Make the Chinese big font from stroke medians</source>
        <translation>由笔画中线生成中文大字体</translation>
    </message>
</context>
<context>
    <name>HersheyCommand</name>
    <message>
        <source>Folder to write the fonts into</source>
        <translation>写入字体的文件夹</translation>
    </message>
    <message>
        <source>Folder with the .jhf files</source>
        <translation>存放 .jhf 文件的文件夹</translation>
    </message>
    <message>
        <source>Make the regular fonts from the Hershey data</source>
        <translation>由 Hershey 数据生成常规字体</translation>
    </message>
</context>
<context>
    <name>fontbuilder</name>
    <message>
        <source>Makes stroke fonts from source text or free data, and source text from stroke fonts.</source>
        <translation>由源文本或自由数据生成单线字体，也由单线字体生成源文本。</translation>
    </message>
</context>
</TS>
