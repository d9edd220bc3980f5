<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>codekit</name>
    <message>
        <source>%1 has %2 digits, or %3 with the check digit; this is &quot;%4&quot;</source>
        <translation>%1 有 %2 位数字，含校验位为 %3 位；现为“%4”</translation>
    </message>
    <message>
        <source>the check digit of %1 is %2, not %3</source>
        <translation>%1 的校验位是 %2，不是 %3</translation>
    </message>
    <message>
        <source>an add-on has 2 or 5 digits; this is &quot;%1&quot;</source>
        <translation>附加码有 2 位或 5 位数字；现为“%1”</translation>
    </message>
    <message>
        <source>UPC-E has 6 digits, 7 with the number system before them, or 8 with the check digit; this is &quot;%1&quot;</source>
        <translation>UPC-E 有 6 位数字，前加数字系统为 7 位，含校验位为 8 位；现为“%1”</translation>
    </message>
    <message>
        <source>the number system of UPC-E is 0 or 1, not %1</source>
        <translation>UPC-E 的数字系统是 0 或 1，不是 %1</translation>
    </message>
    <message>
        <source>Code 39 has no small letters: use Code 128</source>
        <translation>Code 39 没有小写字母：请用 Code 128</translation>
    </message>
    <message>
        <source>Code 39 has no &quot;%1&quot;: use Code 128 or Data Matrix</source>
        <translation>Code 39 没有“%1”：请用 Code 128 或 Data Matrix</translation>
    </message>
    <message>
        <source>Codabar begins and ends with one of A to D, and between them stand digits and - $ : / . +; this is &quot;%1&quot;</source>
        <translation>Codabar 以 A 至 D 之一开头和结尾，中间是数字和 - $ : / . +；现为“%1”</translation>
    </message>
    <message>
        <source>Interleaved 2 of 5 has digits alone: use Code 128</source>
        <translation>交叉 2 of 5 码只有数字：请用 Code 128</translation>
    </message>
    <message>
        <source>Interleaved 2 of 5 holds pairs of digits, and here one is left over: put a 0 before them</source>
        <translation>交叉 2 of 5 码存放成对的数字，这里多出一位：请在前面加一个 0</translation>
    </message>
    <message>
        <source>%1 wants application identifiers in brackets, as in [01]04012345678901[10]LOT7; this is &quot;%2&quot;</source>
        <translation>%1 需要方括号中的应用标识符，例如 [01]04012345678901[10]LOT7；现为“%2”</translation>
    </message>
    <message>
        <source>%1 has no &quot;%2&quot;: use Data Matrix or QR</source>
        <translation>%1 没有“%2”：请用 Data Matrix 或 QR</translation>
    </message>
    <message>
        <source>there is nothing to encode</source>
        <translation>没有可编码的内容</translation>
    </message>
    <message>
        <source>any text; up to 7,089 digits, 4,296 capitals or 2,953 bytes</source>
        <translation>任意文本；最多 7,089 位数字、4,296 个大写字母或 2,953 字节</translation>
    </message>
    <message>
        <source>any text; up to 361 digits, 219 capitals or 150 bytes</source>
        <translation>任意文本；最多 361 位数字、219 个大写字母或 150 字节</translation>
    </message>
    <message>
        <source>any text; up to 3,116 digits, 2,335 letters or 1,555 bytes</source>
        <translation>任意文本；最多 3,116 位数字、2,335 个字母或 1,555 字节</translation>
    </message>
    <message>
        <source>any text; up to 3,832 digits, 3,067 letters or 1,914 bytes</source>
        <translation>任意文本；最多 3,832 位数字、3,067 个字母或 1,914 字节</translation>
    </message>
    <message>
        <source>any text; up to 2,710 digits, 1,850 letters or 1,108 bytes</source>
        <translation>任意文本；最多 2,710 位数字、1,850 个字母或 1,108 字节</translation>
    </message>
    <message>
        <source>any text; up to 366 digits, 250 letters or 150 bytes</source>
        <translation>任意文本；最多 366 位数字、250 个字母或 150 字节</translation>
    </message>
    <message>
        <source>capitals, digits, space and - . $ / + %; up to 85 characters</source>
        <translation>大写字母、数字、空格和 - . $ / + %；最多 85 个字符</translation>
    </message>
    <message>
        <source>all ASCII characters; up to 85</source>
        <translation>全部 ASCII 字符；最多 85 个</translation>
    </message>
    <message>
        <source>all ASCII characters; up to 107</source>
        <translation>全部 ASCII 字符；最多 107 个</translation>
    </message>
    <message>
        <source>A to D at both ends, between them digits and - $ : / . +; 3 to 60 characters</source>
        <translation>两端为 A 至 D，中间为数字和 - $ : / . +；3 至 60 个字符</translation>
    </message>
    <message>
        <source>digits, an even number of them; up to 90</source>
        <translation>数字，个数为偶数；最多 90 位</translation>
    </message>
    <message>
        <source>13 digits, to which the check digit is added, or 14 with it</source>
        <translation>13 位数字（自动加校验位），或含校验位的 14 位</translation>
    </message>
    <message>
        <source>12 digits, to which the check digit is added, or 13 with it; an add-on of 2 or 5 digits behind a +</source>
        <translation>12 位数字（自动加校验位），或含校验位的 13 位；+ 后可有 2 位或 5 位附加码</translation>
    </message>
    <message>
        <source>7 digits, to which the check digit is added, or 8 with it; an add-on of 2 or 5 digits behind a +</source>
        <translation>7 位数字（自动加校验位），或含校验位的 8 位；+ 后可有 2 位或 5 位附加码</translation>
    </message>
    <message>
        <source>11 digits, to which the check digit is added, or 12 with it; an add-on of 2 or 5 digits behind a +</source>
        <translation>11 位数字（自动加校验位），或含校验位的 12 位；+ 后可有 2 位或 5 位附加码</translation>
    </message>
    <message>
        <source>6 digits, 7 with the number system 0 or 1 before them, or 8 with the check digit; an add-on of 2 or 5 digits behind a +</source>
        <translation>6 位数字，前加数字系统 0 或 1 为 7 位，含校验位为 8 位；+ 后可有 2 位或 5 位附加码</translation>
    </message>
    <message>
        <source>application identifiers in brackets, as in [01]04012345678901[10]LOT7; up to 48 characters</source>
        <translation>方括号中的应用标识符，例如 [01]04012345678901[10]LOT7；最多 48 个字符</translation>
    </message>
    <message>
        <source>application identifiers in brackets, as in [01]04012345678901[10]LOT7</source>
        <translation>方括号中的应用标识符，例如 [01]04012345678901[10]LOT7</translation>
    </message>
    <message>
        <source>the module is more than 0 mm and at most 100 m</source>
        <translation>模块大于 0 mm，最多 100 m</translation>
    </message>
    <message>
        <source>the height of the bars is more than 0 mm and at most 100 m</source>
        <translation>条的高度大于 0 mm，最多 100 m</translation>
    </message>
    <message>
        <source>the growth is less than the module, and not negative</source>
        <translation>增宽量小于模块，且不为负</translation>
    </message>
    <message>
        <source>the growth is less than the height of the bars</source>
        <translation>增宽量小于条的高度</translation>
    </message>
    <message>
        <source>a dot is more than nothing and at most as wide as the module</source>
        <translation>圆点大于零，最多与模块同宽</translation>
    </message>
    <message>
        <source>the growth leaves nothing of the dots</source>
        <translation>扣除增宽量后圆点什么也不剩</translation>
    </message>
    <message>
        <source>%1 of %2 is %3 to %4, not %5</source>
        <translation>%2 的%1为 %3 至 %4，不是 %5</translation>
    </message>
    <message>
        <source>the size</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>the mask</source>
        <translation>掩模</translation>
    </message>
    <message>
        <source>the content is too long for this size of %1: choose a larger one</source>
        <translation>内容对 %1 的这个尺寸太长：请选更大的</translation>
    </message>
    <message>
        <source>the content is too long for %1: %2</source>
        <translation>内容对 %1 太长：%2</translation>
    </message>
    <message>
        <source>%1 cannot be made with these settings</source>
        <translation>用这些设置无法生成 %1</translation>
    </message>
    <message>
        <source>%1 cannot hold this content: %2</source>
        <translation>%1 不能存放此内容：%2</translation>
    </message>
    <message>
        <source>%1 cannot be made of this content (%2)</source>
        <translation>无法用此内容生成 %1（%2）</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>内存不足</translation>
    </message>
    <message>
        <source>%1 has no levels of error correction</source>
        <translation>%1 没有纠错等级</translation>
    </message>
    <message>
        <source>%1 has no sizes: it is as large as its content makes it</source>
        <translation>%1 没有可选的尺寸：其大小由内容决定</translation>
    </message>
    <message>
        <source>%1 has no masks</source>
        <translation>%1 没有掩模</translation>
    </message>
    <message>
        <source>%1 has no number of columns to choose</source>
        <translation>%1 没有可选的列数</translation>
    </message>
    <message>
        <source>%1 has one form; a Data Matrix can be rectangular</source>
        <translation>%1 只有一种形状；Data Matrix 才可以是长方形</translation>
    </message>
    <message>
        <source>%1 leaves no choice of a check digit</source>
        <translation>%1 不能选择校验位</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>（无）</translation>
    </message>
    <message>
        <source>does not show what it was given, &quot;%1&quot;</source>
        <translation>没有显示所给的内容“%1”</translation>
    </message>
    <message>
        <source>is mirrored; turned over it reads: %1</source>
        <translation>是镜像的；翻转后读出：%1</translation>
    </message>
    <message>
        <source>reads as &quot;%1&quot;, not as &quot;%2&quot;</source>
        <translation>读出的是“%1”，而不是“%2”</translation>
    </message>
    <message>
        <source>reads: %1</source>
        <translation>读出：%1</translation>
    </message>
    <message>
        <source>the text below or above the code leaves no lines in this font</source>
        <translation>码上方或下方的文字用此字体没有任何笔画</translation>
    </message>
    <message>
        <source>the text cannot be written: there is no stroke font %1</source>
        <translation>无法书写文字：没有单线字体 %1</translation>
    </message>
    <message>
        <source>there is no reader on board for this kind; it is to say &quot;%1&quot;</source>
        <translation>本程序没有此种码的识读器；应为“%1”</translation>
    </message>
    <message>
        <source>its settings are damaged or of a later version</source>
        <translation>其设置已损坏或出自更新的版本</translation>
    </message>
    <message>
        <source>cannot be read; it is to say &quot;%1&quot;. Try a larger module or a closer hatch, and keep other shapes out of its quiet zone</source>
        <translation>无法读出；应为“%1”。请加大模块或加密填充，并让其他图形离开其静区</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no escape: \n \r \t \e \G \R \E \xHH \uHHHH are, and \\ is a backslash</source>
        <translation>&quot;%1&quot; 不是转义：可用 \n \r \t \e \G \R \E \xHH \uHHHH，\\ 是一个反斜杠</translation>
    </message>
    <message>
        <source>%1 has no control characters, so that there is nothing to escape</source>
        <translation>%1 没有控制字符，无可转义</translation>
    </message>
    <message>
        <source>%1 leaves no choice of a character set</source>
        <translation>%1 不能选择字符集</translation>
    </message>
    <message>
        <source>GS1 has no control characters</source>
        <translation>GS1 没有控制字符</translation>
    </message>
    <message>
        <source>all ASCII characters; up to 60, or 120 digits</source>
        <translation>全部 ASCII 字符；最多 60 个，或 120 位数字</translation>
    </message>
    <message>
        <source>character %1 of the value of (%2) is not allowed there</source>
        <translation>(%2) 的值的第 %1 个字符不允许</translation>
    </message>
    <message>
        <source>the check digit of (%1) is %2, not %3</source>
        <translation>(%1) 的校验位是 %2，不是 %3</translation>
    </message>
    <message>
        <source>the content has half of a character, which no code can hold</source>
        <translation>内容含有半个字符，任何条码都不能容纳</translation>
    </message>
    <message>
        <source>the error correction of %1 is one of %2</source>
        <translation>%1 的纠错等级是 %2 之一</translation>
    </message>
    <message>
        <source>the number of columns</source>
        <translation>列数</translation>
    </message>
    <message>
        <source>the value of (%1) is no date or time</source>
        <translation>(%1) 的值不是日期或时间</translation>
    </message>
    <message>
        <source>the value of (%1) is not as long as it has to be</source>
        <translation>(%1) 的值长度不对</translation>
    </message>
    <message>
        <source>there is no application identifier (%1)</source>
        <translation>没有应用标识符 (%1)</translation>
    </message>
    <message>
        <source>%1 has no &quot;%2&quot; that every scanner reads: use Data Matrix or QR</source>
        <translation>%1 没有所有扫描器都能读的 &quot;%2&quot;：请用 Data Matrix 或 QR</translation>
    </message>
    <message>
        <source>all ASCII characters; up to 35 digits, 21 capitals or 15 characters</source>
        <translation>全部 ASCII 字符；最多 35 位数字、21 个大写字母或 15 个字符</translation>
    </message>
    <message>
        <source>a group separator at the beginning has another meaning in Aztec: use Data Matrix or QR</source>
        <translation>开头的组分隔符在 Aztec 中另有含义：请用 Data Matrix 或 QR</translation>
    </message>
</context>
</TS>
