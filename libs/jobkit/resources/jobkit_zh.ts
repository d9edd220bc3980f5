<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>jobkit::JobChecks</name>
    <message>
        <source>There is nothing to mark.</source>
        <translation>没有可打标的内容。</translation>
    </message>
    <message>
        <source>object %1</source>
        <translation>对象 %1</translation>
    </message>
    <message>
        <source>Pen %1 of %2 is off: what it draws is left out.</source>
        <translation>%2 的笔 %1 已关闭：其内容不打标。</translation>
    </message>
    <message>
        <source>Pen %1 of %2 asks for %3 mm/s, the machine goes no faster than %4.</source>
        <translation>%2 的笔 %1 要求 %3 mm/s，机器最快为 %4。</translation>
    </message>
    <message>
        <source>The serial number of %1 is used up.</source>
        <translation>%1 的序列号已用完。</translation>
    </message>
    <message>
        <source>The font of %1 lacks these characters: %2</source>
        <translation>%1 的字体缺少以下字符：%2</translation>
    </message>
    <message>
        <source>%1 has a coordinate that is no number.</source>
        <translation>%1 含有不是数字的坐标。</translation>
    </message>
    <message>
        <source>%1 has a piece without a length.</source>
        <translation>%1 含有长度为零的线段。</translation>
    </message>
    <message>
        <source>%1 reaches beyond the field.</source>
        <translation>%1 超出加工范围。</translation>
    </message>
    <message>
        <source>Hatch lines of %1 are %2 mm apart, less than %3.</source>
        <translation>%1 的填充线间距为 %2 mm，小于 %3。</translation>
    </message>
    <message>
        <source>%1 has a line that lies twice, also in %2.</source>
        <translation>%1 有一条线重复，也在 %2 中。</translation>
    </message>
    <message>
        <source>%1 has a line that covers one of %2 in part.</source>
        <translation>%1 有一条线与 %2 的线部分重叠。</translation>
    </message>
    <message>
        <source>%1 has a line that lies twice.</source>
        <translation>%1 有一条线重复了两次。</translation>
    </message>
    <message>
        <source>%1 has lines that cover each other in part.</source>
        <translation>%1 有互相部分覆盖的线。</translation>
    </message>
    <message>
        <source>Pen %1 of %2 was given no values: it marks with %3 mm/s and %4 % power.</source>
        <translation>%2 的笔 %1 没有设定数值：将以 %3 mm/s、%4 % 功率标刻。</translation>
    </message>
</context>
<context>
    <name>jobkit::JobWriter</name>
    <message>
        <source>there is no part to write</source>
        <translation>没有可写的工件</translation>
    </message>
    <message>
        <source>several parts fit into G-code alone, which can pause</source>
        <translation>只有能够暂停的 G-code 可以容纳多个工件</translation>
    </message>
    <message>
        <source>a coordinate is no number</source>
        <translation>有坐标不是数字</translation>
    </message>
</context>
<context>
    <name>jobkit::JsonFields</name>
    <message>
        <source>%1: %2 to %3 is allowed, not %4</source>
        <translation>%1：允许 %2 到 %3，而不是 %4</translation>
    </message>
    <message>
        <source>%1: %2 to %3 characters are allowed, not %4</source>
        <translation>%1：允许 %2 到 %3 个字符，而不是 %4 个</translation>
    </message>
    <message>
        <source>%1: a colour as &quot;#rrggbb&quot; is needed</source>
        <translation>%1：需要 &quot;#rrggbb&quot; 形式的颜色</translation>
    </message>
    <message>
        <source>larger than %1 bytes</source>
        <translation>大于 %1 字节</translation>
    </message>
    <message>
        <source>no JSON: line %1</source>
        <translation>不是 JSON：第 %1 行</translation>
    </message>
    <message>
        <source>no JSON object</source>
        <translation>不是 JSON 对象</translation>
    </message>
    <message>
        <source>%1: is missing</source>
        <translation>%1：缺失</translation>
    </message>
    <message>
        <source>%1: a number is needed</source>
        <translation>%1：需要数字</translation>
    </message>
    <message>
        <source>%1: a whole number is needed</source>
        <translation>%1：需要整数</translation>
    </message>
    <message>
        <source>%1: true or false is needed</source>
        <translation>%1：需要 true 或 false</translation>
    </message>
    <message>
        <source>%1: a text is needed</source>
        <translation>%1：需要文本</translation>
    </message>
    <message>
        <source>%1: one of %2 is needed</source>
        <translation>%1：需要 %2 之一</translation>
    </message>
    <message>
        <source>%1: a list is needed</source>
        <translation>%1：需要列表</translation>
    </message>
    <message>
        <source>%1: at most %2 entries are allowed</source>
        <translation>%1：最多允许 %2 项</translation>
    </message>
    <message>
        <source>%1: is newer than this program</source>
        <translation>%1：比本程序新</translation>
    </message>
    <message>
        <source>%1: no such field</source>
        <translation>%1：没有此字段</translation>
    </message>
    <message>
        <source>%1: stands twice</source>
        <translation>%1：出现了两次</translation>
    </message>
</context>
<context>
    <name>jobkit::Material</name>
    <message>
        <source>%1number: pen %2 is there already</source>
        <translation>%1number：笔 %2 已存在</translation>
    </message>
</context>
<context>
    <name>jobkit::NumberJournal</name>
    <message>
        <source>&quot;%1&quot; cannot be read: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
    <message>
        <source>It told which numbers a job took. See to the drawing&apos;s next numbers, then remove it.</source>
        <translation>它记着作业用掉了哪些号码。请先核对图纸接下来的号码，再将它删除。</translation>
    </message>
</context>
</TS>
