<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>studio</name>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Ellipse</source>
        <translation>椭圆(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Export mark paths...</source>
        <translation>导出标刻路径(&amp;E)...</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>网格(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation>组合(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Home</source>
        <translation>原点(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>导入(&amp;I)...</translation>
    </message>
    <message>
        <source>&amp;Invert selection</source>
        <translation>反选(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Line</source>
        <translation>直线(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>测量(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>新建(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Next part</source>
        <translation>下一个工件(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Polygon</source>
        <translation>多边形(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>矩形(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Rulers</source>
        <translation>标尺(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>选择(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;TDOT figure</source>
        <translation>TDOT 图形(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Type on the drawing</source>
        <translation>在图纸上输入(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>Add &amp;sample drawing</source>
        <translation>添加示例图纸(&amp;S)</translation>
    </message>
    <message>
        <source>Align &amp;bottom</source>
        <translation>下对齐(&amp;B)</translation>
    </message>
    <message>
        <source>Align &amp;centres across</source>
        <translation>水平居中对齐(&amp;C)</translation>
    </message>
    <message>
        <source>Align &amp;left</source>
        <translation>左对齐(&amp;L)</translation>
    </message>
    <message>
        <source>Align &amp;right</source>
        <translation>右对齐(&amp;R)</translation>
    </message>
    <message>
        <source>Align &amp;top</source>
        <translation>上对齐(&amp;T)</translation>
    </message>
    <message>
        <source>Align centres &amp;down</source>
        <translation>垂直居中对齐(&amp;D)</translation>
    </message>
    <message>
        <source>Align shapes to the field</source>
        <translation>以幅面为基准对齐</translation>
    </message>
    <message>
        <source>Align shapes to the one that was selected first</source>
        <translation>以最先选中的图形为基准对齐</translation>
    </message>
    <message>
        <source>Align shapes within the box around them</source>
        <translation>在图形的外框内对齐</translation>
    </message>
    <message>
        <source>Begin a new drawing</source>
        <translation>新建图纸</translation>
    </message>
    <message>
        <source>Bring the middle of the selection to the middle of the field</source>
        <translation>把选中内容的中心移到幅面中心</translation>
    </message>
    <message>
        <source>C&amp;entre on each other</source>
        <translation>中心重合(&amp;E)</translation>
    </message>
    <message>
        <source>C&amp;ircle...</source>
        <translation>圆周阵列(&amp;I)...</translation>
    </message>
    <message>
        <source>Centre o&amp;n the field</source>
        <translation>移到幅面中心(&amp;N)</translation>
    </message>
    <message>
        <source>Copy to the clipboard</source>
        <translation>复制到剪贴板</translation>
    </message>
    <message>
        <source>Create a TDOT figure</source>
        <translation>创建 TDOT 图形</translation>
    </message>
    <message>
        <source>Create a line</source>
        <translation>创建直线</translation>
    </message>
    <message>
        <source>Create a rectangle</source>
        <translation>创建矩形</translation>
    </message>
    <message>
        <source>Create a regular polygon</source>
        <translation>创建正多边形</translation>
    </message>
    <message>
        <source>Create a text and type into it</source>
        <translation>创建文字并直接输入</translation>
    </message>
    <message>
        <source>Create an ellipse</source>
        <translation>创建椭圆</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>Cut out to the clipboard</source>
        <translation>剪切到剪贴板</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>创建副本(&amp;U)</translation>
    </message>
    <message>
        <source>Down by 0.1 mm</source>
        <translation>下移 0.1 mm</translation>
    </message>
    <message>
        <source>Down by 1 mm</source>
        <translation>下移 1 mm</translation>
    </message>
    <message>
        <source>Down by 10 mm</source>
        <translation>下移 10 mm</translation>
    </message>
    <message>
        <source>Equal distances a&amp;cross</source>
        <translation>横向等距分布(&amp;C)</translation>
    </message>
    <message>
        <source>Equal distances d&amp;own</source>
        <translation>纵向等距分布(&amp;O)</translation>
    </message>
    <message>
        <source>Equal distances from middle to middle</source>
        <translation>使中心间距相等</translation>
    </message>
    <message>
        <source>Equal gaps &amp;across</source>
        <translation>横向等间隙(&amp;A)</translation>
    </message>
    <message>
        <source>Equal gaps &amp;down</source>
        <translation>纵向等间隙(&amp;D)</translation>
    </message>
    <message>
        <source>Equal space between edges</source>
        <translation>使边缘间隙相等</translation>
    </message>
    <message>
        <source>Export mark paths of se&amp;lection...</source>
        <translation>导出选中图形的标刻路径(&amp;L)...</translation>
    </message>
    <message>
        <source>Export the mark paths of the whole drawing</source>
        <translation>导出整张图纸的标刻路径</translation>
    </message>
    <message>
        <source>Fit &amp;all</source>
        <translation>适合全部(&amp;A)</translation>
    </message>
    <message>
        <source>Fit &amp;selection</source>
        <translation>适合选中图形(&amp;S)</translation>
    </message>
    <message>
        <source>Go back to the drawing as it was saved</source>
        <translation>恢复到上次保存的图纸</translation>
    </message>
    <message>
        <source>Left by 0.1 mm</source>
        <translation>左移 0.1 mm</translation>
    </message>
    <message>
        <source>Left by 1 mm</source>
        <translation>左移 1 mm</translation>
    </message>
    <message>
        <source>Left by 10 mm</source>
        <translation>左移 10 mm</translation>
    </message>
    <message>
        <source>Make one group of the selected shapes</source>
        <translation>把选中的图形组合为一组</translation>
    </message>
    <message>
        <source>Matri&amp;x...</source>
        <translation>阵列(&amp;X)...</translation>
    </message>
    <message>
        <source>Measure distances and angles</source>
        <translation>测量距离和角度</translation>
    </message>
    <message>
        <source>Mirror about the field&apos;s &amp;upright axis</source>
        <translation>以幅面纵轴镜像(&amp;U)</translation>
    </message>
    <message>
        <source>Mirror about the field&apos;s le&amp;vel axis</source>
        <translation>以幅面横轴镜像(&amp;V)</translation>
    </message>
    <message>
        <source>Mirror left to rig&amp;ht</source>
        <translation>左右镜像(&amp;H)</translation>
    </message>
    <message>
        <source>Mirror top to botto&amp;m</source>
        <translation>上下镜像(&amp;M)</translation>
    </message>
    <message>
        <source>Move all variant texts on to the next part</source>
        <translation>把所有可变文字推进到下一个工件</translation>
    </message>
    <message>
        <source>Open a drawing</source>
        <translation>打开图纸</translation>
    </message>
    <message>
        <source>Paste &amp;here</source>
        <translation>粘贴到此处(&amp;H)</translation>
    </message>
    <message>
        <source>Paste at the mouse</source>
        <translation>粘贴到鼠标所在处</translation>
    </message>
    <message>
        <source>Paste exactly where it was copied from</source>
        <translation>粘贴到复制时的原位置</translation>
    </message>
    <message>
        <source>Paste in p&amp;lace</source>
        <translation>原位粘贴(&amp;L)</translation>
    </message>
    <message>
        <source>Paste shapes, SVG drawings or text from the clipboard</source>
        <translation>从剪贴板粘贴图形、SVG 图或文字</translation>
    </message>
    <message>
        <source>R&amp;otate by...</source>
        <translation>旋转(&amp;O)...</translation>
    </message>
    <message>
        <source>Re&amp;vert</source>
        <translation>还原(&amp;V)</translation>
    </message>
    <message>
        <source>Recover &amp;drawings...</source>
        <translation>恢复图纸(&amp;D)...</translation>
    </message>
    <message>
        <source>Recover drawings after a crash</source>
        <translation>在程序崩溃后恢复图纸</translation>
    </message>
    <message>
        <source>Remove all g&amp;uides</source>
        <translation>删除所有参考线(&amp;U)</translation>
    </message>
    <message>
        <source>Repeat shapes around a place</source>
        <translation>绕一点重复图形</translation>
    </message>
    <message>
        <source>Repeat shapes in rows and columns</source>
        <translation>按行列重复图形</translation>
    </message>
    <message>
        <source>Right by 0.1 mm</source>
        <translation>右移 0.1 mm</translation>
    </message>
    <message>
        <source>Right by 1 mm</source>
        <translation>右移 1 mm</translation>
    </message>
    <message>
        <source>Right by 10 mm</source>
        <translation>右移 10 mm</translation>
    </message>
    <message>
        <source>Rotate 90° &amp;anticlockwise</source>
        <translation>逆时针旋转 90°(&amp;A)</translation>
    </message>
    <message>
        <source>Rotate 90° clock&amp;wise</source>
        <translation>顺时针旋转 90°(&amp;W)</translation>
    </message>
    <message>
        <source>Rotate by any angle</source>
        <translation>旋转任意角度</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Save the drawing</source>
        <translation>保存图纸</translation>
    </message>
    <message>
        <source>Save the drawing under another name</source>
        <translation>以其他名称保存图纸</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>Select and move shapes</source>
        <translation>选择和移动图形</translation>
    </message>
    <message>
        <source>Select n&amp;othing</source>
        <translation>取消选择(&amp;O)</translation>
    </message>
    <message>
        <source>Show rulers; drag guides out of them</source>
        <translation>显示标尺；可从标尺拖出参考线</translation>
    </message>
    <message>
        <source>Show the grid</source>
        <translation>显示网格</translation>
    </message>
    <message>
        <source>Show the origin at 100 %</source>
        <translation>以 100 % 显示原点</translation>
    </message>
    <message>
        <source>Show the whole drawing</source>
        <translation>显示整张图纸</translation>
    </message>
    <message>
        <source>Show the whole selection</source>
        <translation>显示全部选中图形</translation>
    </message>
    <message>
        <source>Take the selected groups apart</source>
        <translation>拆开选中的组</translation>
    </message>
    <message>
        <source>Te&amp;xt</source>
        <translation>文字(&amp;X)</translation>
    </message>
    <message>
        <source>Text and &amp;font...</source>
        <translation>文字和字体(&amp;F)...</translation>
    </message>
    <message>
        <source>The selection changes to the other side of the field</source>
        <translation>选中内容移到幅面的另一侧</translation>
    </message>
    <message>
        <source>To &amp;each other</source>
        <translation>相互对齐(&amp;E)</translation>
    </message>
    <message>
        <source>To &amp;shapes</source>
        <translation>到图形(&amp;S)</translation>
    </message>
    <message>
        <source>To edges, middles and ends of shapes</source>
        <translation>吸附到图形的边缘、中心和端点</translation>
    </message>
    <message>
        <source>To g&amp;uides</source>
        <translation>到参考线(&amp;U)</translation>
    </message>
    <message>
        <source>To the &amp;first selected</source>
        <translation>对齐到最先选中的图形(&amp;F)</translation>
    </message>
    <message>
        <source>To the &amp;grid</source>
        <translation>到网格(&amp;G)</translation>
    </message>
    <message>
        <source>To the f&amp;ield</source>
        <translation>对齐到幅面(&amp;I)</translation>
    </message>
    <message>
        <source>Type into the selected text on the drawing</source>
        <translation>在图纸上编辑选中的文字</translation>
    </message>
    <message>
        <source>U&amp;ngroup</source>
        <translation>取消组合(&amp;N)</translation>
    </message>
    <message>
        <source>Up by 0.1 mm</source>
        <translation>上移 0.1 mm</translation>
    </message>
    <message>
        <source>Up by 1 mm</source>
        <translation>上移 1 mm</translation>
    </message>
    <message>
        <source>Up by 10 mm</source>
        <translation>上移 10 mm</translation>
    </message>
    <message>
        <source>Words, font, size, arc and hatch of the selected text</source>
        <translation>选中文字的内容、字体、大小、弧线和填充</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>缩小(&amp;O)</translation>
    </message>
    <message>
        <source>Import an SVG drawing that another program has copied</source>
        <translation>导入其他程序复制的 SVG 图形</translation>
    </message>
    <message>
        <source>Import from the cli&amp;pboard...</source>
        <translation>从剪贴板导入(&amp;P)...</translation>
    </message>
    <message>
        <source>Import plotter files, SVG and DXF drawings</source>
        <translation>导入绘图仪文件、SVG 和 DXF 图形</translation>
    </message>
    <message>
        <source>&amp;Bar code</source>
        <translation>条形码(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Code</source>
        <translation>码(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Verify codes...</source>
        <translation>校验码(&amp;V)...</translation>
    </message>
    <message>
        <source>Code &amp;settings...</source>
        <translation>码设置(&amp;S)...</translation>
    </message>
    <message>
        <source>Create a Data Matrix, QR or other code</source>
        <translation>创建 Data Matrix、QR 或其他码</translation>
    </message>
    <message>
        <source>Create a bar code</source>
        <translation>创建条形码</translation>
    </message>
    <message>
        <source>Kind, content, size and hatch of the selected code</source>
        <translation>所选码的种类、内容、尺寸和填充</translation>
    </message>
    <message>
        <source>Read all codes back from their marks</source>
        <translation>从打标轨迹读回所有的码</translation>
    </message>
    <message>
        <source>&amp;Reset layout</source>
        <translation>恢复布局(&amp;R)</translation>
    </message>
    <message>
        <source>Exact &amp;values</source>
        <translation>精确数值(&amp;V)</translation>
    </message>
    <message>
        <source>Put panels and toolbars where they were at first</source>
        <translation>把面板和工具栏放回最初的位置</translation>
    </message>
    <message>
        <source>Type place, size and angle into the shape panel</source>
        <translation>在图形面板中输入位置、尺寸和角度</translation>
    </message>
    <message>
        <source>E&amp;xport job...</source>
        <translation>导出作业(&amp;X)...</translation>
    </message>
    <message>
        <source>Play the job: order, jumps and the time it takes</source>
        <translation>播放作业：顺序、空跳和所需时间</translation>
    </message>
    <message>
        <source>Write a file that the machine runs</source>
        <translation>写出机器可运行的文件</translation>
    </message>
    <message>
        <source>S&amp;hare one counter</source>
        <translation>共用一个计数器(&amp;H)</translation>
    </message>
    <message>
        <source>Give each of the selected texts and codes the next value of one counter</source>
        <translation>让所选文字和码依次取一个计数器的下一个值</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>打印(&amp;P)...</translation>
    </message>
    <message>
        <source>&amp;Shortcuts</source>
        <translation>快捷键(&amp;S)</translation>
    </message>
    <message>
        <source>All shortcuts on one sheet</source>
        <translation>所有快捷键一览</translation>
    </message>
    <message>
        <source>Print the drawing at true size</source>
        <translation>按实际尺寸打印图纸</translation>
    </message>
    <message>
        <source>Save as P&amp;DF...</source>
        <translation>另存为 PDF(&amp;D)...</translation>
    </message>
    <message>
        <source>The drawing at true size as PDF</source>
        <translation>按实际尺寸将图纸存为 PDF</translation>
    </message>
    <message>
        <source>The manual, to be read and searched</source>
        <translation>可阅读和搜索的手册</translation>
    </message>
    <message>
        <source>User &amp;manual</source>
        <translation>用户手册(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Lower</source>
        <translation>推后(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Raise</source>
        <translation>提前(&amp;R)</translation>
    </message>
    <message>
        <source>Lower: marked one place later</source>
        <translation>推后：晚一位标刻</translation>
    </message>
    <message>
        <source>Raise: marked one place earlier</source>
        <translation>提前：早一位标刻</translation>
    </message>
    <message>
        <source>Re&amp;verse</source>
        <translation>反转(&amp;V)</translation>
    </message>
    <message>
        <source>Reverse the order of marking, of the selected shapes or of all</source>
        <translation>反转标刻顺序：所选图形的，或全部图形的</translation>
    </message>
    <message>
        <source>To &amp;first</source>
        <translation>移到最先(&amp;F)</translation>
    </message>
    <message>
        <source>To first: marked before all others</source>
        <translation>移到最先：在所有其他图形之前标刻</translation>
    </message>
    <message>
        <source>To l&amp;ast</source>
        <translation>移到最后(&amp;A)</translation>
    </message>
    <message>
        <source>To last: marked after all others</source>
        <translation>移到最后：在所有其他图形之后标刻</translation>
    </message>
    <message>
        <source>Order n&amp;umbers</source>
        <translation>标刻序号(&amp;U)</translation>
    </message>
    <message>
        <source>Pre&amp;ferences...</source>
        <translation>首选项(&amp;F)...</translation>
    </message>
    <message>
        <source>Show at each shape when it is marked</source>
        <translation>在每个图形旁显示其标刻次序</translation>
    </message>
    <message>
        <source>Units, field, curves, new shapes, language, theme</source>
        <translation>单位、幅面、曲线、新图形、语言、主题</translation>
    </message>
    <message>
        <source>&amp;Break apart</source>
        <translation>拆分(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Combine</source>
        <translation>合并(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Difference</source>
        <translation>差集(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Intersection</source>
        <translation>交集(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Offset...</source>
        <translation>偏移(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Union</source>
        <translation>并集(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Weld</source>
        <translation>焊接(&amp;W)</translation>
    </message>
    <message>
        <source>A shape for each outline with its holes</source>
        <translation>每个轮廓连同其孔成为一个图形</translation>
    </message>
    <message>
        <source>Areas of a shape that overlap become one; holes stay holes</source>
        <translation>图形中重叠的区域合成一个；孔仍为孔</translation>
    </message>
    <message>
        <source>C&amp;lean and simplify...</source>
        <translation>清理和简化(&amp;L)...</translation>
    </message>
    <message>
        <source>E&amp;xclusion</source>
        <translation>异或(&amp;X)</translation>
    </message>
    <message>
        <source>Join ends, remove what is drawn twice, take out needless points</source>
        <translation>连接端点，去除重复绘制的部分和多余的点</translation>
    </message>
    <message>
        <source>One area of all the selected ones</source>
        <translation>所有选中的区域合成一个区域</translation>
    </message>
    <message>
        <source>Outlines at a distance from the selected ones</source>
        <translation>与选中轮廓保持一定距离的轮廓</translation>
    </message>
    <message>
        <source>Shapes and texts become paths, whose nodes can be edited</source>
        <translation>图形和文字变为路径，其节点可以编辑</translation>
    </message>
    <message>
        <source>The lowest of the selected areas without the others</source>
        <translation>选中区域中最下面的一个减去其余的</translation>
    </message>
    <message>
        <source>The selected shapes become one path, hatched as one</source>
        <translation>选中的图形合成一条路径，一起填充</translation>
    </message>
    <message>
        <source>Turn into &amp;paths</source>
        <translation>转换为路径(&amp;P)</translation>
    </message>
    <message>
        <source>What lies in all of the selected areas</source>
        <translation>所有选中区域共有的部分</translation>
    </message>
    <message>
        <source>What lies in one of the selected areas alone</source>
        <translation>只在一个选中区域内的部分</translation>
    </message>
    <message>
        <source>&amp;Add between</source>
        <translation>中间添加(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Break</source>
        <translation>断开(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Delete nodes</source>
        <translation>删除节点(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>连接(&amp;J)</translation>
    </message>
    <message>
        <source>&amp;Nodes</source>
        <translation>节点(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Smooth</source>
        <translation>平滑(&amp;S)</translation>
    </message>
    <message>
        <source>A curve between the selected nodes</source>
        <translation>选中节点之间为曲线</translation>
    </message>
    <message>
        <source>A node in the middle between selected ones</source>
        <translation>在选中节点的正中间添加节点</translation>
    </message>
    <message>
        <source>C&amp;orner</source>
        <translation>尖角(&amp;O)</translation>
    </message>
    <message>
        <source>C&amp;urve</source>
        <translation>曲线(&amp;U)</translation>
    </message>
    <message>
        <source>Draw a curve: click points, drag from them to bend</source>
        <translation>绘制曲线：单击取点，从点拖动使其弯曲</translation>
    </message>
    <message>
        <source>Draw a path point by point</source>
        <translation>逐点绘制路径</translation>
    </message>
    <message>
        <source>Edit the nodes of a path</source>
        <translation>编辑路径的节点</translation>
    </message>
    <message>
        <source>One node of two selected ends</source>
        <translation>两个选中的端点合成一个节点</translation>
    </message>
    <message>
        <source>Pol&amp;yline</source>
        <translation>折线(&amp;Y)</translation>
    </message>
    <message>
        <source>Straight between the selected nodes</source>
        <translation>选中节点之间为直线</translation>
    </message>
    <message>
        <source>The control points of the selected nodes move on their own</source>
        <translation>选中节点的控制点各自移动</translation>
    </message>
    <message>
        <source>The line runs through the selected nodes without a corner</source>
        <translation>线平滑地通过选中的节点</translation>
    </message>
    <message>
        <source>To &amp;curve</source>
        <translation>变为曲线(&amp;C)</translation>
    </message>
    <message>
        <source>To &amp;line</source>
        <translation>变为直线(&amp;L)</translation>
    </message>
    <message>
        <source>Two ends of each selected node</source>
        <translation>每个选中的节点变为两个端点</translation>
    </message>
    <message>
        <source>Re-impor&amp;t</source>
        <translation>重新导入(&amp;T)</translation>
    </message>
    <message>
        <source>Bring changed files in once more; place, size, pen and hatch stay</source>
        <translation>再次导入选中图形的文件；位置、大小、笔和填充保持不变</translation>
    </message>
    <message>
        <source>Add shapes of all kinds, to look at and to try out</source>
        <translation>添加各种图形，供查看和试用</translation>
    </message>
    <message>
        <source>All middles in one place</source>
        <translation>所有中心重合于一处</translation>
    </message>
    <message>
        <source>Copy the selected shapes beside themselves</source>
        <translation>把选中图形的副本放在旁边</translation>
    </message>
    <message>
        <source>Delete the selected shapes</source>
        <translation>删除选中的图形</translation>
    </message>
    <message>
        <source>Do the step again that was taken back</source>
        <translation>重做刚撤销的一步</translation>
    </message>
    <message>
        <source>End the program; it asks before changes are lost</source>
        <translation>退出程序；更改丢失之前会询问</translation>
    </message>
    <message>
        <source>Export the mark paths of the selected shapes alone</source>
        <translation>只导出选中图形的标刻路径</translation>
    </message>
    <message>
        <source>Left edges in one line</source>
        <translation>左边缘对齐成一线</translation>
    </message>
    <message>
        <source>Lower edges in one line</source>
        <translation>下边缘对齐成一线</translation>
    </message>
    <message>
        <source>Middles in one level line</source>
        <translation>中心对齐成一条水平线</translation>
    </message>
    <message>
        <source>Middles in one upright line</source>
        <translation>中心对齐成一条竖直线</translation>
    </message>
    <message>
        <source>Mirror the selection, left becomes right; its box stays</source>
        <translation>镜像选中内容，左右互换；外框不动</translation>
    </message>
    <message>
        <source>Mirror the selection, top becomes bottom; its box stays</source>
        <translation>镜像选中内容，上下互换；外框不动</translation>
    </message>
    <message>
        <source>Out of an entered group, or select nothing</source>
        <translation>离开已进入的组，或取消选择</translation>
    </message>
    <message>
        <source>Remove the guides of this drawing</source>
        <translation>删除本图纸的参考线</translation>
    </message>
    <message>
        <source>Right edges in one line</source>
        <translation>右边缘对齐成一线</translation>
    </message>
    <message>
        <source>Select all shapes that are neither locked nor hidden</source>
        <translation>选中所有未锁定也未隐藏的图形</translation>
    </message>
    <message>
        <source>Select what is not selected, and nothing else</source>
        <translation>选中未选中的，取消已选中的</translation>
    </message>
    <message>
        <source>Show the drawing larger</source>
        <translation>放大显示图纸</translation>
    </message>
    <message>
        <source>Show the drawing smaller</source>
        <translation>缩小显示图纸</translation>
    </message>
    <message>
        <source>Take the last step back</source>
        <translation>撤销上一步</translation>
    </message>
    <message>
        <source>The line goes on without the selected nodes</source>
        <translation>去掉选中的节点，线继续相连</translation>
    </message>
    <message>
        <source>To the guides that were dragged out of the rulers</source>
        <translation>吸附到从标尺拖出的参考线</translation>
    </message>
    <message>
        <source>To the lines of the grid</source>
        <translation>吸附到网格线</translation>
    </message>
    <message>
        <source>Turn the selection by a quarter, anticlockwise</source>
        <translation>把选中内容逆时针转四分之一圈</translation>
    </message>
    <message>
        <source>Turn the selection by a quarter, clockwise</source>
        <translation>把选中内容顺时针转四分之一圈</translation>
    </message>
    <message>
        <source>Upper edges in one line</source>
        <translation>上边缘对齐成一线</translation>
    </message>
    <message>
        <source>Version of the program</source>
        <translation>程序的版本</translation>
    </message>
    <message>
        <source>Pre&amp;view</source>
        <translation>预览(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Documentation</source>
        <translation>开发文档(&amp;D)</translation>
    </message>
    <message>
        <source>Guides and reference for those who build on the library</source>
        <translation>面向在此库上开发的人的指南和参考</translation>
    </message>
</context>
<context>
    <name>studio::ArcPage</name>
    <message>
        <source> °</source>
        <translation> °</translation>
    </message>
    <message>
        <source>&amp;Diameter</source>
        <translation>直径(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>起始角(&amp;S)</translation>
    </message>
    <message>
        <source>Of the circle on which the characters stand</source>
        <translation>字符所在圆的直径</translation>
    </message>
    <message>
        <source>S&amp;pan</source>
        <translation>张角(&amp;P)</translation>
    </message>
    <message>
        <source>Text on an &amp;arc</source>
        <translation>弧线文字(&amp;A)</translation>
    </message>
    <message>
        <source>Shared out among the characters; positive runs anticlockwise, negative clockwise</source>
        <translation>分配给各个字符；正值为逆时针，负值为顺时针</translation>
    </message>
    <message>
        <source>Where the arc starts: 0° is at three o&apos;clock, 90° at twelve</source>
        <translation>圆弧的起点：0° 在三点钟方向，90° 在十二点钟方向</translation>
    </message>
</context>
<context>
    <name>studio::Autosaver</name>
    <message>
        <source>Reason: %1. Save it yourself from time to time.</source>
        <translation>原因：%1。请不时自行保存。</translation>
    </message>
    <message>
        <source>The drawing is not protected against a crash.</source>
        <translation>图纸当前没有崩溃保护。</translation>
    </message>
</context>
<context>
    <name>studio::CircleDialog</name>
    <message>
        <source>&amp;Angle from first to last</source>
        <translation>首末夹角(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Create</source>
        <translation>创建(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Places on the circle</source>
        <translation>圆周上的位置数(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Turn the copies with the circle</source>
        <translation>副本随圆周旋转(&amp;T)</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>圆周阵列</translation>
    </message>
    <message>
        <source>Middle &amp;X</source>
        <translation>中心 &amp;X</translation>
    </message>
    <message>
        <source>Middle &amp;Y, downward</source>
        <translation>中心 &amp;Y（向下为正）</translation>
    </message>
    <message>
        <source>One every %1°</source>
        <translation>每隔 %1° 一个</translation>
    </message>
    <message>
        <source>Positive is counter-clockwise; 360° goes all around</source>
        <translation>逆时针为正；360° 为整圈</translation>
    </message>
    <message>
        <source>Select what is to be repeated.</source>
        <translation>请选择要重复的图形。</translation>
    </message>
    <message>
        <source>With an angle of 0 all copies would lie upon each other.</source>
        <translation>角度为 0 时所有副本会重叠。</translation>
    </message>
    <message>
        <source>Middle &amp;Y, upward</source>
        <translation>圆心 &amp;Y，向上为正</translation>
    </message>
</context>
<context>
    <name>studio::ClipboardActions</name>
    <message>
        <source>It has %L1 characters; at most %L2 become a text.</source>
        <translation>共有 %L1 个字符；一个文本最多 %L2 个。</translation>
    </message>
    <message>
        <source>The clipboard holds nothing that can be pasted</source>
        <translation>剪贴板中没有可以粘贴的内容</translation>
    </message>
    <message>
        <source>The shapes were not copied.</source>
        <translation>图形未能复制。</translation>
    </message>
    <message>
        <source>The shapes were not pasted.</source>
        <translation>图形未能粘贴。</translation>
    </message>
    <message>
        <source>The text was not pasted.</source>
        <translation>文字未能粘贴。</translation>
    </message>
    <message>
        <source>clipboard</source>
        <translation>剪贴板</translation>
    </message>
</context>
<context>
    <name>studio::DrawingFiles</name>
    <message>
        <source>there is not enough memory</source>
        <translation>内存不足</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is there already.</source>
        <translation>“%1”已经存在。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program.</source>
        <translation>“%1”已被其他程序更改。</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>覆盖(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>替换(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Revert</source>
        <translation>还原(&amp;R)</translation>
    </message>
    <message>
        <source>All changes since &quot;%1&quot; was saved go, and this cannot be undone.</source>
        <translation>“%1”上次保存以来的所有更改都将丢失，且无法撤销。</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Drawings (*.ztd *.ZTD)</source>
        <translation>图纸 (*.ztd *.ZTD)</translation>
    </message>
    <message>
        <source>Open a drawing</source>
        <translation>打开图纸</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>正在打开 %1...</translation>
    </message>
    <message>
        <source>Otherwise they are lost.</source>
        <translation>否则更改将会丢失。</translation>
    </message>
    <message>
        <source>Numbers that jobs took of it meanwhile would come again.</source>
        <translation>期间作业取用的编号会再次出现。</translation>
    </message>
    <message>
        <source>Overwriting it loses those changes. Saving under another name keeps both.</source>
        <translation>覆盖会丢失那些更改。以其他名称保存可保留两者。</translation>
    </message>
    <message>
        <source>Reading %1...</source>
        <translation>正在读取 %1...</translation>
    </message>
    <message>
        <source>Recovering %1...</source>
        <translation>正在恢复 %1...</translation>
    </message>
    <message>
        <source>Replacing it loses what it holds.</source>
        <translation>替换后其内容将会丢失。</translation>
    </message>
    <message>
        <source>Revert to the saved drawing?</source>
        <translation>还原到已保存的图纸？</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation>是否保存对“%1”的更改？</translation>
    </message>
    <message>
        <source>Save the drawing</source>
        <translation>保存图纸</translation>
    </message>
    <message>
        <source>Saving %1...</source>
        <translation>正在保存 %1...</translation>
    </message>
    <message>
        <source>drawing</source>
        <translation>图纸</translation>
    </message>
</context>
<context>
    <name>studio::DrawingMessages</name>
    <message>
        <source>&quot;%1&quot; holds shapes that this program does not know.</source>
        <translation>“%1”包含本程序不认识的图形。</translation>
    </message>
    <message>
        <source>They are neither shown nor marked here (%1). Saving keeps them.</source>
        <translation>它们在此既不显示也不打标（%1）。保存时会保留它们。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not opened.</source>
        <translation>“%1”未能打开。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not recovered.</source>
        <translation>“%1”未能恢复。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not saved.</source>
        <translation>“%1”未能保存。</translation>
    </message>
    <message>
        <source>A drawing cannot be recovered.</source>
        <translation>有图纸无法恢复。</translation>
    </message>
    <message>
        <source>A newer studio is needed to open it: the file %1.</source>
        <translation>需要更新版本的工作室才能打开此文件(%1)。</translation>
    </message>
    <message>
        <source>A window holds one drawing. These were left out: %1.</source>
        <translation>一个窗口只能打开一张图纸。以下文件未打开：%1。</translation>
    </message>
    <message>
        <source>Fonts of &quot;%1&quot; are missing.</source>
        <translation>缺少“%1”所用的字体。</translation>
    </message>
    <message>
        <source>Its recovery file is damaged. It was kept as %1.</source>
        <translation>其恢复文件已损坏，已保留为 %1。</translation>
    </message>
    <message>
        <source>Only &quot;%1&quot; was opened.</source>
        <translation>只打开了“%1”。</translation>
    </message>
    <message>
        <source>Reason: %1.</source>
        <translation>原因：%1。</translation>
    </message>
    <message>
        <source>Reason: %1. The drawing is still in the window; save it to another place.</source>
        <translation>原因：%1。图纸仍在窗口中；请保存到其他位置。</translation>
    </message>
    <message>
        <source>Texts in these fonts look and mark differently here: %1. They keep the names of their fonts.</source>
        <translation>使用下列字体的文字在此处的显示和标刻会有所不同：%1。文字保留其字体名称。</translation>
    </message>
    <message>
        <source>The file is damaged, and half a drawing is worse than none. Take a copy of it from elsewhere. Reason: %1.</source>
        <translation>文件已损坏，残缺的图纸不如没有。请从别处取得副本。原因：%1。</translation>
    </message>
    <message>
        <source>The file is no drawing of the studio: it %1. Plotter files are imported, not opened.</source>
        <translation>该文件不是工作室的图纸(%1)。绘图仪文件应导入，而不是打开。</translation>
    </message>
</context>
<context>
    <name>studio::DrawingSession</name>
    <message>
        <source>Unnamed</source>
        <translation>未命名</translation>
    </message>
</context>
<context>
    <name>studio::DrawingTools</name>
    <message>
        <source>%1: drag a box, or click. Shift keeps the proportions, Alt begins in the middle, Esc gives up</source>
        <translation>%1：拖出方框，或单击。Shift 保持比例，Alt 从中心开始，Esc 放弃</translation>
    </message>
    <message>
        <source>%1: drag from end to end. Shift keeps to steps of 15°, Alt begins in the middle, Esc gives up</source>
        <translation>%1：从一端拖到另一端。Shift 按 15° 步进，Alt 从中点开始，Esc 放弃</translation>
    </message>
    <message>
        <source>A shape needs a width and a height: drag a box</source>
        <translation>图形需要宽度和高度：请拖出方框</translation>
    </message>
    <message>
        <source>Measure: drag from place to place. Shift keeps to steps of 15°, Esc ends</source>
        <translation>测量：从一点拖到另一点。Shift 按 15° 步进，Esc 结束</translation>
    </message>
    <message>
        <source>%1 %2, %3°</source>
        <translation>%1 %2，%3°</translation>
    </message>
    <message>
        <source>%1 × %2 %3</source>
        <translation>%1 × %2 %3</translation>
    </message>
    <message>
        <source>%1; across %2, down %3 %4</source>
        <translation>%1；横向 %2，向下 %3 %4</translation>
    </message>
    <message>
        <source>%1; across %2, up %3 %4</source>
        <translation>%1；横向 %2，向上 %3 %4</translation>
    </message>
</context>
<context>
    <name>studio::ExportJob</name>
    <message>
        <source>a shape was deleted meanwhile</source>
        <translation>其间有图形被删除</translation>
    </message>
    <message>
        <source>it could not be made</source>
        <translation>无法生成</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>内存不足</translation>
    </message>
</context>
<context>
    <name>studio::EmptyHint</name>
    <message>
        <source>Choose a tool on the left and drag to draw
Drop drawings here, or paste them
Ctrl and the wheel zoom, Space and the mouse move the view</source>
        <translation>在左侧选择工具并拖动绘制
把图纸拖放到此处，或粘贴
Ctrl 加滚轮缩放，空格加鼠标平移视图</translation>
    </message>
</context>
<context>
    <name>studio::Exporter</name>
    <message>
        <source>&quot;%1&quot; was not written.</source>
        <translation>“%1”未写入。</translation>
    </message>
    <message>
        <source>%1 paths (*%2)</source>
        <translation>%1 路径 (*%2)</translation>
    </message>
    <message>
        <source>%1 picture (*%2)</source>
        <translation>%1 图片 (*%2)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Export mark paths</source>
        <translation>导出标刻路径</translation>
    </message>
    <message>
        <source>Export mark paths of the selection</source>
        <translation>导出选中图形的标刻路径</translation>
    </message>
    <message>
        <source>Gathering mark paths...</source>
        <translation>正在收集标刻路径...</translation>
    </message>
    <message>
        <source>Reason: %1. Choose another place and try again.</source>
        <translation>原因：%1。请选择其他位置后重试。</translation>
    </message>
    <message>
        <source>The name has to end in one of %1.</source>
        <translation>文件名必须以 %1 之一结尾。</translation>
    </message>
    <message>
        <source>Writing %1...</source>
        <translation>正在写入 %1...</translation>
    </message>
    <message>
        <source>drawing</source>
        <translation>图纸</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>&amp;Export them as they are</source>
        <translation>仍按现状导出(&amp;E)</translation>
    </message>
    <message>
        <source>Some shapes do not show what they were given.</source>
        <translation>有些图形显示的不是所给的内容。</translation>
    </message>
</context>
<context>
    <name>studio::FontOffers</name>
    <message>
        <source>&quot;%1&quot; is not installed here; &quot;%2&quot; stands in for it.</source>
        <translation>这里没有安装“%1”，由“%2”代替。</translation>
    </message>
</context>
<context>
    <name>studio::FontPage</name>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>&amp;Bold</source>
        <translation>粗体(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Chinese</source>
        <translation>汉字(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation>高度(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Italic</source>
        <translation>斜体(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Letters and digits</source>
        <translation>字母和数字(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;System font, outlines</source>
        <translation>系统字体，轮廓(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>宽度(&amp;W)</translation>
    </message>
    <message>
        <source>Added to what the font has; on an arc the span decides</source>
        <translation>在字体自身间距之外增加；在弧线上由张角决定</translation>
    </message>
    <message>
        <source>F&amp;amily</source>
        <translation>字体(&amp;A)</translation>
    </message>
    <message>
        <source>From the ink of the lines above to the tops of capitals</source>
        <translation>从上面各行的笔画到本行大写字母的顶端</translation>
    </message>
    <message>
        <source>Height of capital letters on the part</source>
        <translation>大写字母在工件上的高度</translation>
    </message>
    <message>
        <source>S&amp;pace between lines</source>
        <translation>行间距(&amp;P)</translation>
    </message>
    <message>
        <source>Space between charac&amp;ters</source>
        <translation>字符间距(&amp;T)</translation>
    </message>
    <message>
        <source>Stroke &amp;fonts, single lines</source>
        <translation>单线字体(&amp;F)</translation>
    </message>
    <message>
        <source>Stroke fonts come in pairs: one for letters and one for Chinese, as SHX files in %1.</source>
        <translation>单线字体成对使用：一个用于字母，一个用于汉字，都是 %1 中的 SHX 文件。</translation>
    </message>
    <message>
        <source>Width of the letters; at 100 % they are as the font has them</source>
        <translation>字母的宽度；100 % 时与字体原样相同</translation>
    </message>
</context>
<context>
    <name>studio::GroupTools</name>
    <message>
        <source>No group is selected</source>
        <translation>没有选中任何组</translation>
    </message>
    <message>
        <source>These shapes are one group already</source>
        <translation>这些图形已经是一组</translation>
    </message>
    <message>
        <source>Within a group: its shapes are on their own, Esc leaves it</source>
        <translation>已进入组：组内图形可单独编辑，Esc 退出</translation>
    </message>
</context>
<context>
    <name>studio::GuideTools</name>
    <message>
        <source>Guide</source>
        <translation>参考线</translation>
    </message>
    <message>
        <source>X in %1:</source>
        <translation>X（%1）：</translation>
    </message>
    <message>
        <source>Y in %1, downward:</source>
        <translation>Y（%1，向下）：</translation>
    </message>
    <message>
        <source>Y in %1, upward:</source>
        <translation>Y（%1，向上）：</translation>
    </message>
</context>
<context>
    <name>studio::HatchPage</name>
    <message>
        <source> °</source>
        <translation> °</translation>
    </message>
    <message>
        <source>&amp;Direction</source>
        <translation>方向(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Lines</source>
        <translation>线条(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Outlines as well</source>
        <translation>同时标刻轮廓(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Spacing</source>
        <translation>间距(&amp;S)</translation>
    </message>
    <message>
        <source>Marks the outlines of the letters, too</source>
        <translation>字母的轮廓也一并标刻</translation>
    </message>
    <message>
        <source>Stroke fonts are single lines: there is nothing to hatch.</source>
        <translation>单线字体只有线条，没有可填充的区域。</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>single lines</source>
        <translation>单线</translation>
    </message>
    <message>
        <source>zigzag</source>
        <translation>折线</translation>
    </message>
    <message>
        <source>0° is across, positive is anticlockwise</source>
        <translation>0° 为水平，正值为逆时针</translation>
    </message>
</context>
<context>
    <name>studio::Importer</name>
    <message>
        <source>&quot;%1&quot; was imported with losses.</source>
        <translation>“%1”已导入，但有缺失。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported.</source>
        <translation>“%1”未导入。</translation>
    </message>
    <message>
        <source>Some of it was left out or is damaged. Compare the drawing with its source before marking it.</source>
        <translation>部分内容被略去或已损坏。标刻前请将图形与原文件核对。</translation>
    </message>
    <message>
        <source>Cleaning %1...</source>
        <translation>正在清理 %1...</translation>
    </message>
    <message>
        <source>Importing %1...</source>
        <translation>正在导入 %1...</translation>
    </message>
    <message>
        <source>Reading %1...</source>
        <translation>正在读取 %1...</translation>
    </message>
</context>
<context>
    <name>studio::InPlaceEditor</name>
    <message>
        <source>Ctrl+Return or a click elsewhere takes the words, Esc gives them up</source>
        <translation>按 Ctrl+回车 或点击别处确认，按 Esc 放弃</translation>
    </message>
</context>
<context>
    <name>studio::LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;System language</source>
        <translation>系统语言(&amp;S)</translation>
    </message>
</context>
<context>
    <name>studio::LongWork</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>studio::MainWindow</name>
    <message>
        <source>%1[*] - Studio</source>
        <translation>%1[*] - 绘图工作室</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>重做(&amp;R)：%1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>撤销(&amp;U)：%1</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Draws what a laser marks, and hands out the paths.</source>
        <translation>绘制激光标刻的内容，并输出路径。</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>已保存到 %1</translation>
    </message>
    <message>
        <source>Studio %1</source>
        <translation>绘图工作室 %1</translation>
    </message>
    <message>
        <source>Degrees, anticlockwise:</source>
        <translation>角度（度，逆时针）：</translation>
    </message>
    <message>
        <source>Job</source>
        <translation>作业</translation>
    </message>
    <message>
        <source>Engine objects</source>
        <translation>引擎对象</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>计划</translation>
    </message>
</context>
<context>
    <name>studio::MatrixDialog</name>
    <message>
        <source>%L1 shapes are too many; at most %L2 can be made at once.</source>
        <translation>%L1 个图形太多；一次最多可创建 %L2 个。</translation>
    </message>
    <message>
        <source>&amp;Create</source>
        <translation>创建(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Rows</source>
        <translation>行数(&amp;R)</translation>
    </message>
    <message>
        <source>C&amp;olumns</source>
        <translation>列数(&amp;O)</translation>
    </message>
    <message>
        <source>Gap &amp;across</source>
        <translation>横向间隔(&amp;A)</translation>
    </message>
    <message>
        <source>Gap &amp;down</source>
        <translation>纵向间隔(&amp;D)</translation>
    </message>
    <message>
        <source>Matrix</source>
        <translation>阵列</translation>
    </message>
    <message>
        <source>Select what is to be repeated.</source>
        <translation>请选择要重复的图形。</translation>
    </message>
    <message>
        <source>&amp;Number the copies: each has the next value</source>
        <translation>为副本编号：每个取下一个值(&amp;N)</translation>
    </message>
    <message>
        <source>The next part then goes on behind the values of all of them</source>
        <translation>下一件从所有这些值之后继续</translation>
    </message>
    <message>
        <source>Shapes: %L1, on %2 by %3 %4</source>
        <translation>图形数：%L1，占 %2 × %3 %4</translation>
    </message>
</context>
<context>
    <name>studio::OrderMenu</name>
    <message>
        <source>&amp;Bottom to top</source>
        <translation>从下到上(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Left to right</source>
        <translation>从左到右(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Nearest next</source>
        <translation>最近优先(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Right to left</source>
        <translation>从右到左(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Top to bottom</source>
        <translation>从上到下(&amp;T)</translation>
    </message>
    <message>
        <source>As &amp;stacked</source>
        <translation>按堆叠顺序(&amp;S)</translation>
    </message>
    <message>
        <source>Marking &amp;order</source>
        <translation>标刻顺序(&amp;O)</translation>
    </message>
</context>
<context>
    <name>studio::PropertyDock</name>
    <message>
        <source>%1 shapes selected; the grid shows the first</source>
        <translation>已选中 %1 个图形；表格显示第一个</translation>
    </message>
    <message>
        <source>&amp;Dense property rows</source>
        <translation>紧凑属性行(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Keep proportions</source>
        <translation>保持比例(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Pen</source>
        <translation>笔(&amp;P)</translation>
    </message>
    <message>
        <source>1 shape selected</source>
        <translation>已选中 1 个图形</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>未选中图形</translation>
    </message>
    <message>
        <source>Pen that marks the selected shapes</source>
        <translation>标刻选中图形的笔</translation>
    </message>
    <message>
        <source>Resizing keeps the proportions of the selected shapes</source>
        <translation>缩放时保持选中图形的比例</translation>
    </message>
    <message>
        <source>Engine properties</source>
        <translation>引擎属性</translation>
    </message>
    <message>
        <source>The engine&apos;s own numbers: a place is that of a shape&apos;s origin in mm, a spacing is marked larger than it is shown here, sizes and lengths hold before a shape is turned or resized. True measures stand in the shape panel.</source>
        <translation>引擎自身的数值：位置是图形原点的 mm 坐标，间距的实际标刻值大于此处所示，尺寸和长度是旋转或缩放之前的值。真实尺寸见图形面板。</translation>
    </message>
</context>
<context>
    <name>studio::FieldCheck</name>
    <message>
        <source>Shapes lie outside the field.</source>
        <translation>有图形位于工作区之外。</translation>
    </message>
    <message>
        <source>The machine may not reach what lies there.</source>
        <translation>机器可能无法到达这些位置。</translation>
    </message>
    <message>
        <source>&amp;Export all the same</source>
        <translation>仍然导出(&amp;E)</translation>
    </message>
</context>
<context>
    <name>studio::RotateHandle</name>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
</context>
<context>
    <name>studio::ShapeKinds</name>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>椭圆</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>多边形</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>直线</translation>
    </message>
    <message>
        <source>TDOT figure</source>
        <translation>TDOT 图形</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>图形</translation>
    </message>
    <message>
        <source>Bar code</source>
        <translation>条形码</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>码</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>路径</translation>
    </message>
</context>
<context>
    <name>studio::PropertyGrid</name>
    <message>
        <source>3 to %L1 sides</source>
        <translation>3 至 %L1 条边</translation>
    </message>
</context>
<context>
    <name>studio::RecentMenu</name>
    <message>
        <source>&amp;Clear list</source>
        <translation>清除列表(&amp;C)</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>最近打开(&amp;R)</translation>
    </message>
</context>
<context>
    <name>studio::RecoveryDialog</name>
    <message>
        <source>%1, shapes: %L2</source>
        <translation>%1，图形：%L2</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Discard...</source>
        <translation>丢弃(&amp;D)...</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>以后再说(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>Discard for good?</source>
        <translation>确定永久丢弃？</translation>
    </message>
    <message>
        <source>Recover drawings</source>
        <translation>恢复图纸</translation>
    </message>
    <message>
        <source>The studio ended without saving these drawings. What is left for later is offered again.</source>
        <translation>工作室结束时未保存这些图纸。留待以后的图纸会再次提供恢复。</translation>
    </message>
    <message>
        <source>There is nothing to recover: every drawing was saved or let go.</source>
        <translation>没有可恢复的内容：所有图纸均已保存或放弃。</translation>
    </message>
    <message>
        <source>What was not saved of these drawings is lost.</source>
        <translation>这些图纸中未保存的内容将会丢失。</translation>
    </message>
</context>
<context>
    <name>studio::RecoveryStore</name>
    <message>
        <source>Unsaved drawing</source>
        <translation>未保存的图纸</translation>
    </message>
</context>
<context>
    <name>studio::SegmentForm</name>
    <message>
        <source>&amp;Behind it</source>
        <translation>结束之后(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Characters</source>
        <translation>字符数(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Column</source>
        <translation>列(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Days later</source>
        <translation>推后天数(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Digits</source>
        <translation>数制(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Encoding</source>
        <translation>编码(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Hours later</source>
        <translation>推后小时(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Last number</source>
        <translation>终止值(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Names in</source>
        <translation>名称语言(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Separated by</source>
        <translation>分隔符(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Shows</source>
        <translation>显示(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Step</source>
        <translation>步长(&amp;S)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Choose the list file</source>
        <translation>选择列表文件</translation>
    </message>
    <message>
        <source>English</source>
        <translation>英语</translation>
    </message>
    <message>
        <source>F&amp;ile</source>
        <translation>文件(&amp;I)</translation>
    </message>
    <message>
        <source>Filled &amp;up</source>
        <translation>补齐方式(&amp;U)</translation>
    </message>
    <message>
        <source>First &amp;number</source>
        <translation>起始值(&amp;N)</translation>
    </message>
    <message>
        <source>First ro&amp;w</source>
        <translation>首行(&amp;W)</translation>
    </message>
    <message>
        <source>For&amp;mat</source>
        <translation>格式(&amp;M)</translation>
    </message>
    <message>
        <source>How many parts get the same number</source>
        <translation>多少个工件使用同一个数</translation>
    </message>
    <message>
        <source>Julian day</source>
        <translation>儒略日</translation>
    </message>
    <message>
        <source>Lists (*.csv *.txt *.tsv)</source>
        <translation>列表 (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>Min&amp;utes later</source>
        <translation>推后分钟(&amp;U)</translation>
    </message>
    <message>
        <source>Number of the part that is marked now</source>
        <translation>当前标刻工件的数</translation>
    </message>
    <message>
        <source>Parts for &amp;each number</source>
        <translation>每个数的工件数(&amp;E)</translation>
    </message>
    <message>
        <source>Row of the part that is marked now</source>
        <translation>当前标刻工件的行</translation>
    </message>
    <message>
        <source>Rows above this one are headings</source>
        <translation>此行以上为标题</translation>
    </message>
    <message>
        <source>Te&amp;xt</source>
        <translation>文字(&amp;X)</translation>
    </message>
    <message>
        <source>The counter never comes to this number.</source>
        <translation>计数器永远不会到达这个数。</translation>
    </message>
    <message>
        <source>This &amp;part</source>
        <translation>当前工件(&amp;P)</translation>
    </message>
    <message>
        <source>comma</source>
        <translation>逗号</translation>
    </message>
    <message>
        <source>date and time in a format</source>
        <translation>按格式显示日期和时间</translation>
    </message>
    <message>
        <source>day of the year</source>
        <translation>一年中的第几天</translation>
    </message>
    <message>
        <source>decimal, 0 to 9</source>
        <translation>十进制，0 到 9</translation>
    </message>
    <message>
        <source>hexadecimal, 0 to F</source>
        <translation>十六进制，0 到 F</translation>
    </message>
    <message>
        <source>letters, A to Z</source>
        <translation>字母，A 到 Z</translation>
    </message>
    <message>
        <source>number of the week</source>
        <translation>周数</translation>
    </message>
    <message>
        <source>semicolon</source>
        <translation>分号</translation>
    </message>
    <message>
        <source>shows the last number again</source>
        <translation>重复最后的数</translation>
    </message>
    <message>
        <source>shows the last row again</source>
        <translation>重复最后一行</translation>
    </message>
    <message>
        <source>starts anew</source>
        <translation>从头开始</translation>
    </message>
    <message>
        <source>tabulator</source>
        <translation>制表符</translation>
    </message>
    <message>
        <source>whole row</source>
        <translation>整行</translation>
    </message>
    <message>
        <source>with blanks</source>
        <translation>用空格</translation>
    </message>
    <message>
        <source>with zeros</source>
        <translation>用零</translation>
    </message>
    <message>
        <source>year of the week</source>
        <translation>该周所属的年份</translation>
    </message>
    <message>
        <source>yyyy year, MM month, dd day, HH hour, mm minute, ss second; text in &apos;quotes&apos;</source>
        <translation>yyyy 年，MM 月，dd 日，HH 时，mm 分，ss 秒；文字放在 &apos;引号&apos; 中</translation>
    </message>
</context>
<context>
    <name>studio::SnapTools</name>
    <message>
        <source>Snaps to: %1. Ctrl suspends it</source>
        <translation>吸附到：%1。按住 Ctrl 暂停吸附</translation>
    </message>
    <message>
        <source>edge</source>
        <translation>边缘</translation>
    </message>
    <message>
        <source>end point</source>
        <translation>端点</translation>
    </message>
    <message>
        <source>grid</source>
        <translation>网格</translation>
    </message>
    <message>
        <source>guide</source>
        <translation>参考线</translation>
    </message>
    <message>
        <source>middle</source>
        <translation>中心</translation>
    </message>
</context>
<context>
    <name>studio::StatusBar</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>%1 of %2 selected</source>
        <translation>已选中 %1 / %2</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>未选中图形</translation>
    </message>
    <message>
        <source>Place of the mouse, y downward</source>
        <translation>鼠标位置，y 轴向下</translation>
    </message>
    <message>
        <source>Selected shapes, and all shapes</source>
        <translation>选中的图形数和图形总数</translation>
    </message>
    <message>
        <source>Top left corner and size of the selection&apos;s box</source>
        <translation>选区外框的左上角和尺寸</translation>
    </message>
    <message>
        <source>Zoom; Ctrl and the wheel change it</source>
        <translation>缩放比例；按住 Ctrl 并滚动滚轮可更改</translation>
    </message>
    <message>
        <source>Place of the mouse, y upward</source>
        <translation>鼠标位置，y 向上</translation>
    </message>
    <message>
        <source>Selection X %1  Y %2  W %3  H %4 %5</source>
        <translation>选区 X %1  Y %2  宽 %3  高 %4 %5</translation>
    </message>
    <message>
        <source>X %1  Y %2 %3</source>
        <translation>X %1  Y %2 %3</translation>
    </message>
</context>
<context>
    <name>studio::StrokeFonts</name>
    <message>
        <source>TEXT</source>
        <translation>文字</translation>
    </message>
</context>
<context>
    <name>studio::TextDialog</name>
    <message>
        <source>&amp;1 Words</source>
        <translation>&amp;1 内容</translation>
    </message>
    <message>
        <source>&amp;2 Font</source>
        <translation>&amp;2 字体</translation>
    </message>
    <message>
        <source>&amp;3 Arc</source>
        <translation>&amp;3 弧线</translation>
    </message>
    <message>
        <source>&amp;4 Hatch</source>
        <translation>&amp;4 填充</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
</context>
<context>
    <name>studio::TextTools</name>
    <message>
        <source>A variant text is not complete.</source>
        <translation>有可变文字不完整。</translation>
    </message>
    <message>
        <source>A variant text is used up: its last value shows once more.</source>
        <translation>有可变文字已用完：重复显示最后的值。</translation>
    </message>
    <message>
        <source>Give it new values before another part is marked.</source>
        <translation>标刻下一个工件之前，请为它设置新的值。</translation>
    </message>
    <message>
        <source>Mend the list file or the text, then go to the next part.</source>
        <translation>请修正列表文件或文字，然后再转到下一个工件。</translation>
    </message>
    <message>
        <source>Next part: %1</source>
        <translation>下一个工件：%1</translation>
    </message>
    <message>
        <source>The drawing has no variant text</source>
        <translation>图纸中没有可变文字</translation>
    </message>
    <message>
        <source>Select texts or codes, one of them with a counter</source>
        <translation>请选择文字或码，其中一个带计数器</translation>
    </message>
</context>
<context>
    <name>studio::UndoTexts</name>
    <message>
        <source>Add guide</source>
        <translation>添加参考线</translation>
    </message>
    <message>
        <source>Add sample drawing</source>
        <translation>添加示例图纸</translation>
    </message>
    <message>
        <source>Align</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>Centre on the field</source>
        <translation>移到幅面中心</translation>
    </message>
    <message>
        <source>Change pen</source>
        <translation>更改笔</translation>
    </message>
    <message>
        <source>Change property</source>
        <translation>更改属性</translation>
    </message>
    <message>
        <source>Change text</source>
        <translation>更改文字</translation>
    </message>
    <message>
        <source>Circle of %1</source>
        <translation>%1 个圆周阵列</translation>
    </message>
    <message>
        <source>Create TDOT figure</source>
        <translation>创建 TDOT 图形</translation>
    </message>
    <message>
        <source>Create ellipse</source>
        <translation>创建椭圆</translation>
    </message>
    <message>
        <source>Create line</source>
        <translation>创建直线</translation>
    </message>
    <message>
        <source>Create polygon</source>
        <translation>创建多边形</translation>
    </message>
    <message>
        <source>Create rectangle</source>
        <translation>创建矩形</translation>
    </message>
    <message>
        <source>Create shape</source>
        <translation>创建图形</translation>
    </message>
    <message>
        <source>Create text</source>
        <translation>创建文字</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Distribute</source>
        <translation>分布</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>创建副本</translation>
    </message>
    <message>
        <source>Free proportions</source>
        <translation>解除比例锁定</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>组合</translation>
    </message>
    <message>
        <source>Import %1</source>
        <translation>导入 %1</translation>
    </message>
    <message>
        <source>Import %1 drawings</source>
        <translation>导入 %1 张图纸</translation>
    </message>
    <message>
        <source>Lock proportions</source>
        <translation>锁定比例</translation>
    </message>
    <message>
        <source>Matrix of %1 by %2</source>
        <translation>%1 × %2 阵列</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>镜像</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
    <message>
        <source>Move guide</source>
        <translation>移动参考线</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Remove guide</source>
        <translation>删除参考线</translation>
    </message>
    <message>
        <source>Remove guides</source>
        <translation>删除所有参考线</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>调整大小</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Type text</source>
        <translation>输入文字</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>取消组合</translation>
    </message>
    <message>
        <source>Change code</source>
        <translation>修改码</translation>
    </message>
    <message>
        <source>Create bar code</source>
        <translation>创建条形码</translation>
    </message>
    <message>
        <source>Create code</source>
        <translation>创建码</translation>
    </message>
    <message>
        <source>Change hatch</source>
        <translation>更改填充</translation>
    </message>
    <message>
        <source>Change length</source>
        <translation>更改长度</translation>
    </message>
    <message>
        <source>Change marking order</source>
        <translation>更改标刻顺序</translation>
    </message>
    <message>
        <source>Change number of sides</source>
        <translation>更改边数</translation>
    </message>
    <message>
        <source>Change what is hidden</source>
        <translation>更改隐藏</translation>
    </message>
    <message>
        <source>Change what is locked</source>
        <translation>更改锁定</translation>
    </message>
    <message>
        <source>Change what is marked</source>
        <translation>更改是否标刻</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Change pens</source>
        <translation>更改笔</translation>
    </message>
    <message>
        <source>Share counter</source>
        <translation>共用计数器</translation>
    </message>
    <message>
        <source>Break apart</source>
        <translation>拆分</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>清理</translation>
    </message>
    <message>
        <source>Combine</source>
        <translation>合并</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>差集</translation>
    </message>
    <message>
        <source>Exclusion</source>
        <translation>异或</translation>
    </message>
    <message>
        <source>Intersection</source>
        <translation>交集</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>偏移</translation>
    </message>
    <message>
        <source>Turn into paths</source>
        <translation>转换为路径</translation>
    </message>
    <message>
        <source>Union</source>
        <translation>并集</translation>
    </message>
    <message>
        <source>Weld</source>
        <translation>焊接</translation>
    </message>
    <message>
        <source>Add nodes</source>
        <translation>添加节点</translation>
    </message>
    <message>
        <source>Break at nodes</source>
        <translation>在节点处断开</translation>
    </message>
    <message>
        <source>Curves to lines</source>
        <translation>曲线变直线</translation>
    </message>
    <message>
        <source>Delete nodes</source>
        <translation>删除节点</translation>
    </message>
    <message>
        <source>Draw path</source>
        <translation>绘制路径</translation>
    </message>
    <message>
        <source>Join nodes</source>
        <translation>连接节点</translation>
    </message>
    <message>
        <source>Lines to curves</source>
        <translation>直线变曲线</translation>
    </message>
    <message>
        <source>Move nodes</source>
        <translation>移动节点</translation>
    </message>
    <message>
        <source>Smooth nodes</source>
        <translation>平滑节点</translation>
    </message>
    <message>
        <source>Re-import</source>
        <translation>重新导入</translation>
    </message>
    <message>
        <source>Change settings of the drawing</source>
        <translation>更改图纸的设置</translation>
    </message>
    <message>
        <source>Corner nodes</source>
        <translation>设为尖角节点</translation>
    </message>
</context>
<context>
    <name>studio::VariantPanel</name>
    <message>
        <source>&amp;Add</source>
        <translation>添加(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Counter</source>
        <translation>计数器(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Date and time</source>
        <translation>日期和时间(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;List file</source>
        <translation>列表文件(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>删除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>文字(&amp;T)</translation>
    </message>
    <message>
        <source>Add a segment at the end</source>
        <translation>在末尾添加一段</translation>
    </message>
    <message>
        <source>Choose a list file.</source>
        <translation>请选择列表文件。</translation>
    </message>
    <message>
        <source>Move the chosen segment down</source>
        <translation>把选中的段下移</translation>
    </message>
    <message>
        <source>Move the chosen segment up</source>
        <translation>把选中的段上移</translation>
    </message>
    <message>
        <source>Remove the chosen segment</source>
        <translation>删除选中的段</translation>
    </message>
    <message>
        <source>Segments, strung together</source>
        <translation>依次相连的各段</translation>
    </message>
    <message>
        <source>This part and the next ones</source>
        <translation>当前和后续工件</translation>
    </message>
</context>
<context>
    <name>studio::VariantParts</name>
    <message>
        <source>Counter: %1</source>
        <translation>计数器：%1</translation>
    </message>
    <message>
        <source>Date: %1</source>
        <translation>日期：%1</translation>
    </message>
    <message>
        <source>Date: Julian day</source>
        <translation>日期：儒略日</translation>
    </message>
    <message>
        <source>Date: day of the year</source>
        <translation>日期：一年中的第几天</translation>
    </message>
    <message>
        <source>Date: week</source>
        <translation>日期：周数</translation>
    </message>
    <message>
        <source>Date: year of the week</source>
        <translation>日期：该周所属的年份</translation>
    </message>
    <message>
        <source>List: %1</source>
        <translation>列表：%1</translation>
    </message>
    <message>
        <source>Text: %1</source>
        <translation>文字：%1</translation>
    </message>
</context>
<context>
    <name>studio::WindowLayout</name>
    <message>
        <source>&amp;Align</source>
        <translation>对齐(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>排列(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Create</source>
        <translation>创建(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Nudge</source>
        <translation>微移(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>文字(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;With the mouse</source>
        <translation>用鼠标绘制(&amp;W)</translation>
    </message>
    <message>
        <source>Align</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>Align &amp;to</source>
        <translation>对齐基准(&amp;T)</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>S&amp;nap</source>
        <translation>吸附(&amp;N)</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>变换</translation>
    </message>
    <message>
        <source>View</source>
        <translation>视图</translation>
    </message>
    <message>
        <source>T&amp;ools</source>
        <translation>工具(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Job</source>
        <translation>作业(&amp;J)</translation>
    </message>
    <message>
        <source>Or&amp;der</source>
        <translation>次序(&amp;D)</translation>
    </message>
    <message>
        <source>Pat&amp;hs</source>
        <translation>路径(&amp;H)</translation>
    </message>
    <message>
        <source>N&amp;odes</source>
        <translation>节点(&amp;O)</translation>
    </message>
</context>
<context>
    <name>studio::WordsPage</name>
    <message>
        <source>&amp;Fixed text</source>
        <translation>固定文字(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Variant text, another for each part</source>
        <translation>可变文字，每个工件各不相同(&amp;V)</translation>
    </message>
</context>
<context>
    <name>studio::Headless</name>
    <message>
        <source>cannot be written</source>
        <translation>无法写入</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告：%1</translation>
    </message>
    <message>
        <source>no mark data: shapes outside the work area are written with --outside alone</source>
        <translation>没有写入标刻数据：只有加上 --outside 才写入超出工作区的图形</translation>
    </message>
    <message>
        <source>sample drawing</source>
        <translation>示例图纸</translation>
    </message>
    <message>
        <source>the folder cannot be made</source>
        <translation>无法创建文件夹</translation>
    </message>
    <message>
        <source>no mark data: shapes that do not show what they were given are written with --as-shown alone</source>
        <translation>没有打标数据：显示的不是所给内容的图形只有用 --as-shown 才写出</translation>
    </message>
</context>
<context>
    <name>studio::ImportDialog</name>
    <message>
        <source>%1, written by %2</source>
        <translation>%1，由 %2 生成</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>高度(&amp;H)：</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>导入(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Left out or changed:</source>
        <translation>略去或更改的内容(&amp;L)：</translation>
    </message>
    <message>
        <source>&amp;Pens:</source>
        <translation>笔(&amp;P)：</translation>
    </message>
    <message>
        <source>&amp;Split:</source>
        <translation>拆分(&amp;S)：</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>单位(&amp;U)：</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>宽度(&amp;W)：</translation>
    </message>
    <message>
        <source>0.025 mm (plotter)</source>
        <translation>0.025 mm（绘图仪）</translation>
    </message>
    <message>
        <source>1 cm</source>
        <translation>1 cm</translation>
    </message>
    <message>
        <source>1 inch</source>
        <translation>1 英寸</translation>
    </message>
    <message>
        <source>1 mm</source>
        <translation>1 mm</translation>
    </message>
    <message>
        <source>1/1016 inch (plotter)</source>
        <translation>1/1016 英寸（绘图仪）</translation>
    </message>
    <message>
        <source>1/72 inch (point)</source>
        <translation>1/72 英寸（磅）</translation>
    </message>
    <message>
        <source>1/96 inch (pixel)</source>
        <translation>1/96 英寸（像素）</translation>
    </message>
    <message>
        <source>All of it was read.</source>
        <translation>已全部读取。</translation>
    </message>
    <message>
        <source>As found: %1 mm</source>
        <translation>按文件：%1 mm</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>文件：</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>格式：</translation>
    </message>
    <message>
        <source>Hatch open outlines as if closed</source>
        <translation>将未闭合轮廓视为闭合进行填充</translation>
    </message>
    <message>
        <source>Holds:</source>
        <translation>内容：</translation>
    </message>
    <message>
        <source>Import &quot;%1&quot;</source>
        <translation>导入“%1”</translation>
    </message>
    <message>
        <source>Keep proportions</source>
        <translation>保持比例</translation>
    </message>
    <message>
        <source>One shape</source>
        <translation>一个形状</translation>
    </message>
    <message>
        <source>One shape a color</source>
        <translation>每种颜色一个形状</translation>
    </message>
    <message>
        <source>One shape a layer</source>
        <translation>每个图层一个形状</translation>
    </message>
    <message>
        <source>One shape an outline with its holes</source>
        <translation>每条轮廓及其孔一个形状</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Size as found:</source>
        <translation>文件尺寸：</translation>
    </message>
    <message>
        <source>%L1 pieces: choose what to clean, and see what it mends.</source>
        <translation>%L1 段：请选择要清理的内容并查看结果。</translation>
    </message>
    <message>
        <source>&amp;Cleaning</source>
        <translation>清理(&amp;C)</translation>
    </message>
    <message>
        <source>Cleaning...</source>
        <translation>正在清理...</translation>
    </message>
    <message>
        <source>Dra&amp;wing</source>
        <translation>图纸(&amp;W)</translation>
    </message>
    <message>
        <source>Given up: change what is to be cleaned.</source>
        <translation>已放弃：请更改要清理的内容。</translation>
    </message>
    <message>
        <source>There is nothing to mend.</source>
        <translation>没有需要修补的。</translation>
    </message>
    <message>
        <source>To be mended: %1</source>
        <translation>需要修补：%1</translation>
    </message>
    <message>
        <source>layers: %1, outlines: %2, texts: %3</source>
        <translation>图层：%1，轮廓：%2，文字：%3</translation>
    </message>
    <message>
        <source>&amp;Mend this</source>
        <translation>修补(&amp;M)</translation>
    </message>
    <message>
        <source>%1 × %2 %3. %4</source>
        <translation>%1 × %2 %3。%4</translation>
    </message>
</context>
<context>
    <name>studio::ImportNotes</name>
    <message>
        <source>%1, first at %2</source>
        <translation>%1，首次出现于 %2</translation>
    </message>
    <message>
        <source>%1: %2 (%3)</source>
        <translation>%1：%2（%3）</translation>
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
        <source>left out</source>
        <translation>已略去</translation>
    </message>
</context>
<context>
    <name>studio::RecoverySlot</name>
    <message>
        <source>nothing can be written to the folder %1</source>
        <translation>无法写入文件夹 %1</translation>
    </message>
    <message>
        <source>the folder %1 cannot be made</source>
        <translation>无法创建文件夹 %1</translation>
    </message>
</context>
<context>
    <name>studio::CodeDialog</name>
    <message>
        <source>&amp;1 Content</source>
        <translation>&amp;1 内容</translation>
    </message>
    <message>
        <source>&amp;2 Size and form</source>
        <translation>&amp;2 尺寸和形式</translation>
    </message>
    <message>
        <source>&amp;3 Options</source>
        <translation>&amp;3 选项</translation>
    </message>
    <message>
        <source>&amp;4 Text</source>
        <translation>&amp;4 文字</translation>
    </message>
    <message>
        <source>&amp;5 Hatch</source>
        <translation>&amp;5 填充</translation>
    </message>
    <message>
        <source>&amp;Kind</source>
        <translation>种类(&amp;K)</translation>
    </message>
    <message>
        <source>A later part, &quot;%1&quot;, cannot be made: %2</source>
        <translation>之后的一件“%1”无法生成：%2</translation>
    </message>
    <message>
        <source>Cannot be made: %1</source>
        <translation>无法生成：%1</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>码</translation>
    </message>
    <message>
        <source>The drawing still shows the last good code: %1</source>
        <translation>图纸上仍是最后一个有效的码：%1</translation>
    </message>
    <message>
        <source>The code is mirrored: scanners read it from behind, or not at all.</source>
        <translation>条码是镜像的：扫描器只能从背面读出，或根本读不出。</translation>
    </message>
    <message>
        <source>%1 x %2, %3 %4, reads: %5</source>
        <translation>%1 x %2，%3 %4，读出：%5</translation>
    </message>
</context>
<context>
    <name>studio::CodeFormPage</name>
    <message>
        <source> % of the module</source>
        <translation> %（相对模块）</translation>
    </message>
    <message>
        <source>&amp;Diameter of a dot</source>
        <translation>点的直径(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Height of the bars</source>
        <translation>条的高度(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Inverse: mark what is light, for dark material</source>
        <translation>反色：标刻浅色部分，用于深色材料(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <translation>模块(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Style</source>
        <translation>样式(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>宽度(&amp;W)</translation>
    </message>
    <message>
        <source>Print &amp;growth</source>
        <translation>线条补偿(&amp;G)</translation>
    </message>
    <message>
        <source>Show the &amp;quiet zone on the drawing</source>
        <translation>在图纸上显示静区(&amp;Q)</translation>
    </message>
    <message>
        <source>The room that the code needs free around it; it is never marked</source>
        <translation>码四周需要留空的区域；从不标刻</translation>
    </message>
    <message>
        <source>Width of the beam, taken off each dark area: the beam gives it back</source>
        <translation>光束宽度，从每个深色区域中减去：光束会补回</translation>
    </message>
    <message>
        <source>Width of the code without its quiet zone</source>
        <translation>码的宽度，不含静区</translation>
    </message>
    <message>
        <source>Width of the narrowest bar, or of one square</source>
        <translation>最窄的条或一个方块的宽度</translation>
    </message>
    <message>
        <source>bars</source>
        <translation>条</translation>
    </message>
    <message>
        <source>dots</source>
        <translation>圆点</translation>
    </message>
    <message>
        <source>outlines of the dark areas</source>
        <translation>深色区域的轮廓</translation>
    </message>
    <message>
        <source>single lines</source>
        <translation>单线</translation>
    </message>
    <message>
        <source>squares, one by one</source>
        <translation>逐个方块</translation>
    </message>
    <message>
        <source>A point is where the beam stays for a moment: one in each dark module</source>
        <translation>点是光束停留片刻之处：每个深色模块一个</translation>
    </message>
    <message>
        <source>points, one a module</source>
        <translation>点，每个模块一个</translation>
    </message>
</context>
<context>
    <name>studio::CodeOptionsPage</name>
    <message>
        <source>%1 holds %2.</source>
        <translation>%1 可容纳：%2。</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
    <message>
        <source>&amp;Mask</source>
        <translation>掩模(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Rectangular, not square</source>
        <translation>矩形而非方形(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>尺寸(&amp;S)</translation>
    </message>
    <message>
        <source>Add the &amp;check digit</source>
        <translation>添加校验位(&amp;C)</translation>
    </message>
    <message>
        <source>C&amp;haracter set</source>
        <translation>字符集(&amp;H)</translation>
    </message>
    <message>
        <source>Co&amp;lumns</source>
        <translation>列数(&amp;L)</translation>
    </message>
    <message>
        <source>Error c&amp;orrection</source>
        <translation>纠错等级(&amp;O)</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>the best</source>
        <translation>最佳</translation>
    </message>
    <message>
        <source>the smallest that holds the content</source>
        <translation>能容纳内容的最小尺寸</translation>
    </message>
    <message>
        <source>&amp;Escapes: \n, \t, \G, \x1D stand for control characters</source>
        <translation>转义(&amp;E)：\n、\t、\G、\x1D 表示控制字符</translation>
    </message>
</context>
<context>
    <name>studio::CodeTextPage</name>
    <message>
        <source>&amp;Text for people</source>
        <translation>供人阅读的文字(&amp;T)</translation>
    </message>
    <message>
        <source>above the code</source>
        <translation>在码的上方</translation>
    </message>
    <message>
        <source>below the code</source>
        <translation>在码的下方</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
</context>
<context>
    <name>studio::VerifyDialog</name>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Verify again</source>
        <translation>重新校验(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Width of the beam</source>
        <translation>光束宽度(&amp;W)</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>码</translation>
    </message>
    <message>
        <source>Reading...</source>
        <translation>正在读取……</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>The drawing has no code that is marked.</source>
        <translation>图纸中没有要标刻的码。</translation>
    </message>
    <message>
        <source>Verify codes</source>
        <translation>校验码</translation>
    </message>
    <message>
        <source>as wide as the hatch is close</source>
        <translation>与填充间距相同</translation>
    </message>
    <message>
        <source>Codes that read as they are to: %1 of %2.</source>
        <translation>读出正确的条码：%1 / %2。</translation>
    </message>
    <message>
        <source>Stopped. Read as they are to: %1 of %2; not read: %3.</source>
        <translation>已停止。读出正确的：%1 / %2；未读的：%3。</translation>
    </message>
</context>
<context>
    <name>studio::BoxSection</name>
    <message>
        <source>%1: the point that X and Y tell, and that stays when the size changes</source>
        <translation>%1：X 和 Y 所指的点，改变尺寸时它保持不动</translation>
    </message>
    <message>
        <source>0 points right, positive is anticlockwise; turns about the middle of the box</source>
        <translation>0 指向右方，正值为逆时针；绕外框中心旋转</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Angle in degrees</source>
        <translation>角度，单位为度</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>左下</translation>
    </message>
    <message>
        <source>Bottom middle</source>
        <translation>下中</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>右下</translation>
    </message>
    <message>
        <source>Box around all</source>
        <translation>全部图形的外框</translation>
    </message>
    <message>
        <source>Each shape its own box</source>
        <translation>每个图形各自的外框</translation>
    </message>
    <message>
        <source>Keep proportions</source>
        <translation>保持比例</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中心</translation>
    </message>
    <message>
        <source>Middle left</source>
        <translation>左中</translation>
    </message>
    <message>
        <source>Middle right</source>
        <translation>右中</translation>
    </message>
    <message>
        <source>Of several shapes: whether the fields tell and change the box around all of them, or the box of each</source>
        <translation>选中多个图形时：各栏显示和修改的是全部图形的外框，还是每个图形各自的外框</translation>
    </message>
    <message>
        <source>Top left</source>
        <translation>左上</translation>
    </message>
    <message>
        <source>Top middle</source>
        <translation>上中</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>右上</translation>
    </message>
    <message>
        <source>What places and sizes are about</source>
        <translation>位置和尺寸所指的对象</translation>
    </message>
    <message>
        <source>Width and height change together, in these fields and by the handles</source>
        <translation>宽度和高度一起改变，在此输入或拖动控制点时都一样</translation>
    </message>
    <message>
        <source>°, mirrored</source>
        <translation>°，已镜像</translation>
    </message>
    <message>
        <source>Curves are marked as chords: %1 is as near as it comes</source>
        <translation>曲线以弦段标刻：最接近的尺寸为 %1</translation>
    </message>
    <message>
        <source>Height in %1</source>
        <translation>高度（%1）</translation>
    </message>
    <message>
        <source>Height of the outline&apos;s box</source>
        <translation>轮廓框的高度</translation>
    </message>
    <message>
        <source>Place across the field, to the right. Sums and units are welcome: 20+5, 1in</source>
        <translation>幅面上的横向位置，向右为正。可输入算式和单位：20+5、1in</translation>
    </message>
    <message>
        <source>Place down the field, downward</source>
        <translation>幅面上的纵向位置，向下为正</translation>
    </message>
    <message>
        <source>Place up the field, upward</source>
        <translation>幅面上的纵向位置，向上为正</translation>
    </message>
    <message>
        <source>Width in %1</source>
        <translation>宽度（%1）</translation>
    </message>
    <message>
        <source>Width of the outline&apos;s box</source>
        <translation>轮廓框的宽度</translation>
    </message>
    <message>
        <source>X in %1</source>
        <translation>X（%1）</translation>
    </message>
    <message>
        <source>Y in %1</source>
        <translation>Y（%1）</translation>
    </message>
</context>
<context>
    <name>studio::HatchSection</name>
    <message>
        <source>0 is across, positive is anticlockwise</source>
        <translation>0 为水平，正值为逆时针</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Angle of the hatch in degrees</source>
        <translation>填充角度，单位为度</translation>
    </message>
    <message>
        <source>Hatch</source>
        <translation>填充</translation>
    </message>
    <message>
        <source>Lines and stroke fonts have no inside to hatch.</source>
        <translation>直线和单线字体没有可填充的内部。</translation>
    </message>
    <message>
        <source>Marks the outline, too</source>
        <translation>轮廓也一并标刻</translation>
    </message>
    <message>
        <source>Neither outline nor hatch: nothing of it is marked.</source>
        <translation>既无轮廓也无填充：不会标刻任何内容。</translation>
    </message>
    <message>
        <source>No hatch can be made: its spacing does not suit the size of the shape.</source>
        <translation>无法生成填充：间距与图形尺寸不相称。</translation>
    </message>
    <message>
        <source>Outline as well</source>
        <translation>同时标刻轮廓</translation>
    </message>
    <message>
        <source>Spacing</source>
        <translation>间距</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>不一致</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>single lines</source>
        <translation>单向线</translation>
    </message>
    <message>
        <source>zigzag</source>
        <translation>弓形线</translation>
    </message>
    <message>
        <source>Distance of the hatch lines on the part</source>
        <translation>工件上填充线的间距</translation>
    </message>
    <message>
        <source>Spacing of the hatch in %1</source>
        <translation>填充间距（%1）</translation>
    </message>
    <message>
        <source>%1 passes</source>
        <translation>%1 遍</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>All lines one way</source>
        <translation>所有线同向</translation>
    </message>
    <message>
        <source>By how much each pass is turned against the one before</source>
        <translation>每一遍相对前一遍旋转的角度</translation>
    </message>
    <message>
        <source>Every line is marked in the same direction; otherwise to and fro</source>
        <translation>每条线按同一方向标刻；否则来回标刻</translation>
    </message>
    <message>
        <source>How often this hatch is marked, times the passes of its pen</source>
        <translation>此填充标刻的遍数，再乘以其笔的遍数</translation>
    </message>
    <message>
        <source>Inset</source>
        <translation>内缩</translation>
    </message>
    <message>
        <source>Outlines of the shape that overlap are marked as one, and hatched where they overlap</source>
        <translation>图形中相互重叠的轮廓合并为一个标刻，重叠处也会填充</translation>
    </message>
    <message>
        <source>Passes</source>
        <translation>遍数</translation>
    </message>
    <message>
        <source>Passes of the hatch</source>
        <translation>填充的遍数</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Pen of the hatch</source>
        <translation>填充的笔</translation>
    </message>
    <message>
        <source>Pen that marks this hatch</source>
        <translation>标刻此填充的笔</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Turn of each pass in degrees</source>
        <translation>每遍旋转角度（度）</translation>
    </message>
    <message>
        <source>Unite overlapping outlines</source>
        <translation>合并重叠的轮廓</translation>
    </message>
    <message>
        <source>When</source>
        <translation>时机</translation>
    </message>
    <message>
        <source>When the hatch is marked</source>
        <translation>填充的标刻时机</translation>
    </message>
    <message>
        <source>Whether this hatch is marked before or after the outlines</source>
        <translation>此填充在轮廓之前还是之后标刻</translation>
    </message>
    <message>
        <source>after the outlines</source>
        <translation>在轮廓之后</translation>
    </message>
    <message>
        <source>as the job says</source>
        <translation>按作业设置</translation>
    </message>
    <message>
        <source>before the outlines</source>
        <translation>在轮廓之前</translation>
    </message>
    <message>
        <source>contours inward</source>
        <translation>向内轮廓线</translation>
    </message>
    <message>
        <source>crossed lines</source>
        <translation>交叉线</translation>
    </message>
    <message>
        <source>lines, turned each pass</source>
        <translation>每遍旋转的线</translation>
    </message>
    <message>
        <source>pen %1</source>
        <translation>笔 %1</translation>
    </message>
    <message>
        <source>Distance of the hatch from the outline, on the part</source>
        <translation>填充与轮廓的距离（工件上）</translation>
    </message>
    <message>
        <source>Inset of the hatch in %1</source>
        <translation>填充内缩量（%1）</translation>
    </message>
    <message>
        <source>the shape&apos;s</source>
        <translation>图形的笔</translation>
    </message>
</context>
<context>
    <name>studio::ItemSection</name>
    <message>
        <source>Hidden</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>It can be neither selected nor moved; the list of shapes frees it</source>
        <translation>不能选中也不能移动；在图形列表中解锁</translation>
    </message>
    <message>
        <source>It is not shown and not marked; the list of shapes brings it back</source>
        <translation>不显示也不标刻；在图形列表中恢复显示</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>Marked</source>
        <translation>标刻</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Off: it is shown, and left out of what is marked</source>
        <translation>关闭：显示，但不标刻</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Pen that marks the selected shapes</source>
        <translation>标刻所选图形的笔</translation>
    </message>
    <message>
        <source>What the list of shapes calls it; empty: by its kind</source>
        <translation>图形列表中的名称；留空则用类型名</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>不一致</translation>
    </message>
</context>
<context>
    <name>studio::KindSection</name>
    <message>
        <source>Diameter 1</source>
        <translation>直径 1</translation>
    </message>
    <message>
        <source>Diameter 2</source>
        <translation>直径 2</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>Number of sides of the polygon</source>
        <translation>多边形的边数</translation>
    </message>
    <message>
        <source>Sides</source>
        <translation>边数</translation>
    </message>
    <message>
        <source>Along the ellipse&apos;s other axis</source>
        <translation>沿椭圆的另一条轴</translation>
    </message>
    <message>
        <source>Along the ellipse&apos;s own first axis</source>
        <translation>沿椭圆自身的第一条轴</translation>
    </message>
    <message>
        <source>Length of the line; its start stays</source>
        <translation>直线的长度；起点不动</translation>
    </message>
</context>
<context>
    <name>studio::MeasureField</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
    <message>
        <source>%1 to %2 %</source>
        <translation>%1 至 %2 %</translation>
    </message>
    <message>
        <source>%1. Permitted: %2</source>
        <translation>%1。允许范围：%2</translation>
    </message>
    <message>
        <source>%1° to %2°</source>
        <translation>%1° 至 %2°</translation>
    </message>
    <message>
        <source>Not a whole number</source>
        <translation>不是整数</translation>
    </message>
    <message>
        <source>Too large</source>
        <translation>过大</translation>
    </message>
    <message>
        <source>Too small</source>
        <translation>过小</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>不一致</translation>
    </message>
    <message>
        <source>%1 to %2 %3</source>
        <translation>%1 至 %2 %3</translation>
    </message>
</context>
<context>
    <name>studio::PenColors</name>
    <message>
        <source>Black</source>
        <translation>黑色</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>青色</translation>
    </message>
    <message>
        <source>Fuchsia</source>
        <translation>紫红色</translation>
    </message>
    <message>
        <source>Goldenrod</source>
        <translation>金黄色</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>灰色</translation>
    </message>
    <message>
        <source>Khaki</source>
        <translation>卡其色</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>品红色</translation>
    </message>
    <message>
        <source>Navy</source>
        <translation>藏青色</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>橙色</translation>
    </message>
    <message>
        <source>Orchid</source>
        <translation>兰紫色</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message>
        <source>Salmon</source>
        <translation>鲑红色</translation>
    </message>
    <message>
        <source>Turquoise</source>
        <translation>绿松石色</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>黄色</translation>
    </message>
</context>
<context>
    <name>studio::ShapeEdits</name>
    <message>
        <source>An ellipse that is flat cannot be stretched</source>
        <translation>扁平的椭圆无法拉伸</translation>
    </message>
    <message>
        <source>What has no height cannot be stretched to one</source>
        <translation>没有高度的图形无法拉伸出高度</translation>
    </message>
    <message>
        <source>What has no width cannot be stretched to one</source>
        <translation>没有宽度的图形无法拉伸出宽度</translation>
    </message>
    <message>
        <source>A shape would leave the drawing&apos;s area, %1 to %2 %5 across and %3 to %4 %5 down</source>
        <translation>图形会超出图纸区域：横向 %1 到 %2 %5，纵向 %3 到 %4 %5</translation>
    </message>
</context>
<context>
    <name>studio::ShapePanel</name>
    <message>
        <source>%1 shapes selected</source>
        <translation>已选 %1 个图形</translation>
    </message>
    <message>
        <source>1 shape selected</source>
        <translation>已选 1 个图形</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>未选中任何图形</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>图形</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
</context>
<context>
    <name>studio::TextSection</name>
    <message>
        <source>Arc diameter</source>
        <translation>圆弧直径</translation>
    </message>
    <message>
        <source>Arc span</source>
        <translation>圆弧跨角</translation>
    </message>
    <message>
        <source>Arc start</source>
        <translation>圆弧起角</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>中文</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>字族</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Letter space</source>
        <translation>字距</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>字母</translation>
    </message>
    <message>
        <source>Line space</source>
        <translation>行距</translation>
    </message>
    <message>
        <source>On an arc</source>
        <translation>沿圆弧</translation>
    </message>
    <message>
        <source>Select a text to change its font, size and arc.</source>
        <translation>选中文字以更改其字体、尺寸和圆弧。</translation>
    </message>
    <message>
        <source>Shared out among the characters; positive is anticlockwise</source>
        <translation>分配给各个字符；正值为逆时针</translation>
    </message>
    <message>
        <source>Stroke fonts, single lines</source>
        <translation>单线字体</translation>
    </message>
    <message>
        <source>System font, outlines</source>
        <translation>系统字体，轮廓</translation>
    </message>
    <message>
        <source>Where the arc starts: 0 is at three o&apos;clock, 90 at twelve</source>
        <translation>圆弧的起点：0 在三点钟方向，90 在十二点钟方向</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Width of the letters in percent; at 100 they are as the font has them</source>
        <translation>字母宽度的百分比；100 为字体原样</translation>
    </message>
    <message>
        <source>Words and variant text...</source>
        <translation>文字内容和变量文字...</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>不一致</translation>
    </message>
    <message>
        <source>Added to what the font has; on an arc the span decides</source>
        <translation>在字体自身间距之外增加；在弧线上由张角决定</translation>
    </message>
    <message>
        <source>From the ink of the lines above to the tops of capitals</source>
        <translation>从上面各行的笔画到本行大写字母的顶端</translation>
    </message>
    <message>
        <source>Height of capital letters on the part</source>
        <translation>大写字母在工件上的高度</translation>
    </message>
    <message>
        <source>Of the circle on which the characters stand</source>
        <translation>字符所在圆的直径</translation>
    </message>
</context>
<context>
    <name>studio::TypedMeasure</name>
    <message>
        <source>&quot;%1&quot; is no unit of this field</source>
        <translation>“%1”不是此栏的单位</translation>
    </message>
    <message>
        <source>&quot;%1&quot; makes no sense here</source>
        <translation>此处的“%1”没有意义</translation>
    </message>
    <message>
        <source>A bracket has no counterpart</source>
        <translation>括号不成对</translation>
    </message>
    <message>
        <source>A number is missing at the end</source>
        <translation>末尾缺少数字</translation>
    </message>
    <message>
        <source>A unit stands where only a plain number can</source>
        <translation>此处只能是不带单位的数</translation>
    </message>
    <message>
        <source>Decimals stand after a point</source>
        <translation>小数点请用句点</translation>
    </message>
    <message>
        <source>Nothing can be divided by 0</source>
        <translation>不能除以 0</translation>
    </message>
    <message>
        <source>Nothing is entered</source>
        <translation>没有输入内容</translation>
    </message>
    <message>
        <source>The entry is too long</source>
        <translation>输入过长</translation>
    </message>
    <message>
        <source>The number is too large</source>
        <translation>数值过大</translation>
    </message>
</context>
<context>
    <name>studio::JobExportDialog</name>
    <message>
        <source>%1 files: %2 to %3.</source>
        <translation>%1 个文件：%2 至 %3。</translation>
    </message>
    <message>
        <source>%1 of the files are there already.</source>
        <translation>其中 %1 个文件已存在。</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>浏览(&amp;B)...</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;One file, with pauses</source>
        <translation>一个文件，中间暂停(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Parts</source>
        <translation>件数(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>替换(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;What</source>
        <translation>内容(&amp;W)</translation>
    </message>
    <message>
        <source>A file of this name is there already.</source>
        <translation>同名文件已存在。</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>导出(&amp;X)</translation>
    </message>
    <message>
        <source>Export job</source>
        <translation>导出作业</translation>
    </message>
    <message>
        <source>Its frame: a box</source>
        <translation>作业边框：矩形</translation>
    </message>
    <message>
        <source>Its frame: the hull</source>
        <translation>作业边框：凸包</translation>
    </message>
    <message>
        <source>One file: %1.</source>
        <translation>一个文件：%1。</translation>
    </message>
    <message>
        <source>The job</source>
        <translation>作业</translation>
    </message>
    <message>
        <source>The name has to end in one of %1.</source>
        <translation>文件名必须以 %1 之一结尾。</translation>
    </message>
    <message>
        <source>Variant texts move on once a part.</source>
        <translation>可变文本每件前进一次。</translation>
    </message>
    <message>
        <source>drawing</source>
        <translation>图纸</translation>
    </message>
</context>
<context>
    <name>studio::JobExporter</name>
    <message>
        <source>Another job takes numbers of the drawing, as &quot;%1&quot; says. Try again afterwards.</source>
        <translation>如“%1”所示，另一个作业正在取用图纸的编号。请稍后再试。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program since it was opened here: its numbers may be taken. Open it again.</source>
        <translation>“%1”在此打开后被其他程序更改：其编号可能已被取用。请重新打开。</translation>
    </message>
    <message>
        <source>Another window took numbers up to %1. They are passed over.</source>
        <translation>另一个窗口已取用到 %1 的编号，这些编号将被跳过。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not written.</source>
        <translation>未写出“%1”。</translation>
    </message>
    <message>
        <source>After part %1 there are no further values for: %2. No file was written.</source>
        <translation>第 %1 件之后，以下文本不再有值：%2。未写出任何文件。</translation>
    </message>
    <message>
        <source>Folder: %1</source>
        <translation>文件夹：%1</translation>
    </message>
    <message>
        <source>Making the job...</source>
        <translation>正在生成作业...</translation>
    </message>
    <message>
        <source>Not all shapes could be turned into marks.</source>
        <translation>并非所有图形都能转换为标刻路径。</translation>
    </message>
    <message>
        <source>Only G-code can hold several parts with a pause between them. Write one file a part.</source>
        <translation>只有 G 代码能在一个文件中以暂停分隔多件。请每件写一个文件。</translation>
    </message>
    <message>
        <source>Reason: %1.</source>
        <translation>原因：%1。</translation>
    </message>
    <message>
        <source>%1 could not be taken back: it must not be run.</source>
        <translation>无法收回 %1：不得运行它。</translation>
    </message>
    <message>
        <source>The files before it were taken back, and no number is used up.</source>
        <translation>此前写出的文件已收回，编号未用掉。</translation>
    </message>
    <message>
        <source>The name has to end in one of %1.</source>
        <translation>文件名必须以 %1 之一结尾。</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>内存不足。</translation>
    </message>
    <message>
        <source>There is nothing to mark.</source>
        <translation>没有可标刻的内容。</translation>
    </message>
    <message>
        <source>Part %1 cannot be made as asked for: %2. No file was written.</source>
        <translation>第 %1 件无法按要求生成：%2。没有写出任何文件。</translation>
    </message>
    <message>
        <source>%1 was the last number, and it was marked. Give the text new values before another part is marked.</source>
        <translation>%1 是最后一个编号，且已标刻。标刻下一件前请给文本新的值。</translation>
    </message>
    <message>
        <source>&amp;Write them as shown</source>
        <translation>按所显示的写出(&amp;W)</translation>
    </message>
    <message>
        <source>Export the job</source>
        <translation>导出作业</translation>
    </message>
    <message>
        <source>Part %1 cannot be made as asked for. No file was written.</source>
        <translation>第 %1 件不能按要求制作。没有写出文件。</translation>
    </message>
    <message>
        <source>Written as shown, texts are in another font, or left out.</source>
        <translation>若按所显示的写出，文字会使用其他字体或被略去。</translation>
    </message>
    <message>
        <source>Written as shown, they hold the last content that they could.</source>
        <translation>若按所显示的写出，它们保持最后一个可行的内容。</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
    <message>
        <source>An earlier export took %1, and the drawing was not saved after it. These numbers are passed over, for its files may have been run.</source>
        <translation>之前的导出取用了 %1，其后图纸未保存。这些编号将被跳过，因为那些文件可能已被运行。</translation>
    </message>
    <message>
        <source>An earlier export took %1, and the numbers of the drawing were changed since.</source>
        <translation>之前的导出取用了 %1，其后图纸的编号已被修改。</translation>
    </message>
    <message>
        <source>Numbers were taken before.</source>
        <translation>之前已取用过编号。</translation>
    </message>
    <message>
        <source>The numbers cannot be noted beside the drawing: %1. No file was written.</source>
        <translation>无法在图纸旁记录编号：%1。未写入任何文件。</translation>
    </message>
    <message>
        <source>Making part %1 of %2...</source>
        <translation>正在生成第 %1 件，共 %2 件...</translation>
    </message>
</context>
<context>
    <name>studio::JobPanel</name>
    <message>
        <source>%1 s a part (marking %2, jumps %3, delays %4; %5)</source>
        <translation>每件 %1 秒（标刻 %2，空跳 %3，延时 %4；%5）</translation>
    </message>
    <message>
        <source>&amp;Inner outlines before outer ones</source>
        <translation>先内轮廓后外轮廓(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Keep as...</source>
        <translation>保存为(&amp;K)...</translation>
    </message>
    <message>
        <source>&amp;Material</source>
        <translation>材料(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Other...</source>
        <translation>其他(&amp;O)...</translation>
    </message>
    <message>
        <source>After outlines</source>
        <translation>轮廓之后</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Anywhere</source>
        <translation>任意位置</translation>
    </message>
    <message>
        <source>As drawn</source>
        <translation>按绘制顺序</translation>
    </message>
    <message>
        <source>Before outlines</source>
        <translation>轮廓之前</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>选择...</translation>
    </message>
    <message>
        <source>E&amp;xport job...</source>
        <translation>导出作业(&amp;X)...</translation>
    </message>
    <message>
        <source>From a file...</source>
        <translation>从文件...</translation>
    </message>
    <message>
        <source>Hatch&amp;es</source>
        <translation>填充(&amp;E)</translation>
    </message>
    <message>
        <source>Keep these pens as a material under a name</source>
        <translation>将这些笔以某一名称保存为材料</translation>
    </message>
    <message>
        <source>Kept as %1</source>
        <translation>已保存为 %1</translation>
    </message>
    <message>
        <source>Mac&amp;hine</source>
        <translation>机器(&amp;H)</translation>
    </message>
    <message>
        <source>Machine profile</source>
        <translation>机器配置</translation>
    </message>
    <message>
        <source>Machine profiles (*.json)</source>
        <translation>机器配置 (*.json)</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>材料</translation>
    </message>
    <message>
        <source>Materials (*.json)</source>
        <translation>材料 (*.json)</translation>
    </message>
    <message>
        <source>Name of the material:</source>
        <translation>材料名称：</translation>
    </message>
    <message>
        <source>Nearest end next</source>
        <translation>就近端点优先</translation>
    </message>
    <message>
        <source>O&amp;rder</source>
        <translation>顺序(&amp;R)</translation>
    </message>
    <message>
        <source>P&amp;ens of this drawing</source>
        <translation>本图纸的笔(&amp;E)</translation>
    </message>
    <message>
        <source>Pen &amp;by pen</source>
        <translation>逐笔标刻(&amp;B)</translation>
    </message>
    <message>
        <source>Pens of %1</source>
        <translation>%1 的笔</translation>
    </message>
    <message>
        <source>Pens of this drawing</source>
        <translation>本图纸的笔</translation>
    </message>
    <message>
        <source>Read a machine profile from a file</source>
        <translation>从文件读取机器配置</translation>
    </message>
    <message>
        <source>Shortest found</source>
        <translation>所找到的最短</translation>
    </message>
    <message>
        <source>pen %1 %2</source>
        <translation>笔 %1 %2</translation>
    </message>
    <message>
        <source>A further pen, with the values of the last one</source>
        <translation>再加一支笔，取最后一支笔的参数</translation>
    </message>
    <message>
        <source>Add &amp;pen</source>
        <translation>添加笔(&amp;P)</translation>
    </message>
    <message>
        <source>Change the values of this machine, or make a machine like it</source>
        <translation>修改此机器的参数，或据此新建机器</translation>
    </message>
    <message>
        <source>E&amp;dit...</source>
        <translation>编辑(&amp;D)...</translation>
    </message>
    <message>
        <source>To a file...</source>
        <translation>到文件...</translation>
    </message>
    <message>
        <source>Pre&amp;view</source>
        <translation>预览(&amp;V)</translation>
    </message>
</context>
<context>
    <name>studio::JobPreview</name>
    <message>
        <source>%1 of %2 s</source>
        <translation>%1 / %2 秒</translation>
    </message>
    <message>
        <source>Jumps</source>
        <translation>空跳</translation>
    </message>
    <message>
        <source>Moment of the job</source>
        <translation>作业时刻</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>顺序</translation>
    </message>
    <message>
        <source>PDF report (*.pdf)</source>
        <translation>PDF 报告 (*.pdf)</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <translation>图片 (*.png)</translation>
    </message>
    <message>
        <source>Report written to %1</source>
        <translation>报告已写入 %1</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>保存报告</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>The drawing or the pens have changed since.</source>
        <translation>图纸或笔此后已有更改。</translation>
    </message>
    <message>
        <source>The report was not written: %1</source>
        <translation>未写出报告：%1</translation>
    </message>
    <message>
        <source>A frame back (,)</source>
        <translation>后退一帧 (,)</translation>
    </message>
    <message>
        <source>A frame on (.)</source>
        <translation>前进一帧 (.)</translation>
    </message>
    <message>
        <source>A piece back (Left)</source>
        <translation>后退一段 (Left)</translation>
    </message>
    <message>
        <source>A piece on (Right)</source>
        <translation>前进一段 (Right)</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>箭头</translation>
    </message>
    <message>
        <source>Close preview</source>
        <translation>关闭预览</translation>
    </message>
    <message>
        <source>Colours by</source>
        <translation>颜色依据</translation>
    </message>
    <message>
        <source>Jumps, arrows, numbers and starting points are not shown: %L1 pieces are in sight, more than %L2. Zoom in to see them.</source>
        <translation>空跳、箭头、序号和起点未显示：视野内有 %L1 段，超过 %L2。放大后即可看到。</translation>
    </message>
    <message>
        <source>Order numbers</source>
        <translation>顺序号</translation>
    </message>
    <message>
        <source>Pace</source>
        <translation>速度倍率</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Starting points</source>
        <translation>起点</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>drawing</source>
        <translation>图纸</translation>
    </message>
</context>
<context>
    <name>studio::JobReport</name>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>%1 s (marking %2, jumps %3, delays %4)</source>
        <translation>%1 秒（标刻 %2，空跳 %3，延时 %4）</translation>
    </message>
    <message>
        <source>%1 x %2 mm</source>
        <translation>%1 x %2 毫米</translation>
    </message>
    <message>
        <source>Checks</source>
        <translation>检查</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>工作区</translation>
    </message>
    <message>
        <source>Job</source>
        <translation>作业</translation>
    </message>
    <message>
        <source>Machine</source>
        <translation>机器</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Nothing speaks against this job.</source>
        <translation>未发现此作业的问题。</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Pens</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>遍数</translation>
    </message>
    <message>
        <source>kHz</source>
        <translation>千赫</translation>
    </message>
    <message>
        <source>mm/s</source>
        <translation>毫米/秒</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>图纸</translation>
    </message>
</context>
<context>
    <name>studio::JobSettings</name>
    <message>
        <source>The machine profile &quot;%1&quot; cannot be read.</source>
        <translation>无法读取机器配置“%1”。</translation>
    </message>
</context>
<context>
    <name>studio::JobTools</name>
    <message>
        <source>&amp;Export all the same</source>
        <translation>仍然导出(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Show them</source>
        <translation>显示(&amp;S)</translation>
    </message>
    <message>
        <source>Look at this before you mark.</source>
        <translation>标刻前请检查以下内容。</translation>
    </message>
    <message>
        <source>Making the job...</source>
        <translation>正在生成作业...</translation>
    </message>
    <message>
        <source>Not all shapes could be turned into marks.</source>
        <translation>并非所有图形都能转换为标刻路径。</translation>
    </message>
    <message>
        <source>There is no job.</source>
        <translation>没有作业。</translation>
    </message>
    <message>
        <source>There is nothing to mark.</source>
        <translation>没有可标刻的内容。</translation>
    </message>
</context>
<context>
    <name>studio::MaterialStore</name>
    <message>
        <source>The material &quot;%1&quot; cannot be read.</source>
        <translation>无法读取材料“%1”。</translation>
    </message>
</context>
<context>
    <name>studio::PenModel</name>
    <message>
        <source>&quot;%1&quot; is not a number that can stand here</source>
        <translation>“%1”不是此处可用的数</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>On</source>
        <translation>开</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>功率方式</translation>
    </message>
    <message>
        <source>Pulse, ns</source>
        <translation>脉宽，纳秒</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>遍数</translation>
    </message>
    <message>
        <source>constant</source>
        <translation>恒定</translation>
    </message>
    <message>
        <source>constant: the same power at any speed; dynamic: lowered where the head slows down. Double click changes it.</source>
        <translation>恒定：任何速度下功率相同；动态：减速处降低功率。双击可更改。</translation>
    </message>
    <message>
        <source>dynamic</source>
        <translation>动态</translation>
    </message>
    <message>
        <source>kHz</source>
        <translation>千赫</translation>
    </message>
    <message>
        <source>mm/s</source>
        <translation>毫米/秒</translation>
    </message>
    <message>
        <source>Dot, ms</source>
        <translation>点，毫秒</translation>
    </message>
    <message>
        <source>Double click changes the colour.</source>
        <translation>双击可更改颜色。</translation>
    </message>
    <message>
        <source>How long the beam stays on a dot, such as those of a code of points.</source>
        <translation>光束在一个点（如点状码的点）上停留的时间。</translation>
    </message>
</context>
<context>
    <name>studio::DrawingPrint</name>
    <message>
        <source>%1, shown at %2 %</source>
        <translation>%1，以 %2% 显示</translation>
    </message>
    <message>
        <source>%1 x %2 %3</source>
        <translation>%1 x %2 %3</translation>
    </message>
</context>
<context>
    <name>studio::ManualWindow</name>
    <message>
        <source>&amp;Search</source>
        <translation>搜索(&amp;S)</translation>
    </message>
    <message>
        <source>Chapters</source>
        <translation>章节</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>User manual</source>
        <translation>用户手册</translation>
    </message>
    <message>
        <source>user-manual.md</source>
        <translation>user-manual.zh.md</translation>
    </message>
</context>
<context>
    <name>studio::PrintActions</name>
    <message>
        <source>&quot;%1&quot; was not written.</source>
        <translation>未写出“%1”。</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>另存为 PDF</translation>
    </message>
    <message>
        <source>The drawing was not printed.</source>
        <translation>图纸未打印。</translation>
    </message>
    <message>
        <source>The printer does not take it.</source>
        <translation>打印机不接受。</translation>
    </message>
    <message>
        <source>There is nothing to mark.</source>
        <translation>没有可标刻的内容。</translation>
    </message>
</context>
<context>
    <name>studio::ShortcutSheet</name>
    <message>
        <source>&amp;Search</source>
        <translation>搜索(&amp;S)</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>What</source>
        <translation>内容</translation>
    </message>
</context>
<context>
    <name>studio::CodeSection</name>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Code settings...</source>
        <translation>码设置...</translation>
    </message>
    <message>
        <source>%1 codes</source>
        <translation>%1 个码</translation>
    </message>
    <message>
        <source>Width of the narrowest bar, or of one square</source>
        <translation>最窄的条或一个方块的宽度</translation>
    </message>
</context>
<context>
    <name>studio::ShapeList</name>
    <message>
        <source>List of shapes</source>
        <translation>图形列表</translation>
    </message>
    <message>
        <source>Listed as stacked; marking goes by File, Marking order.</source>
        <translation>按叠放次序列出；标刻顺序以“文件 - 标刻顺序”为准。</translation>
    </message>
    <message>
        <source>Marked from top to bottom.</source>
        <translation>从上到下依次标刻。</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>查找</translation>
    </message>
    <message>
        <source>Search for shapes</source>
        <translation>查找图形</translation>
    </message>
    <message>
        <source>Shapes in the order of marking</source>
        <translation>按标刻顺序排列的图形</translation>
    </message>
    <message>
        <source>Shows the shapes whose name, words or kind contain this</source>
        <translation>显示名称、文字或类型中包含此内容的图形</translation>
    </message>
</context>
<context>
    <name>studio::ShapeListModel</name>
    <message>
        <source>Double click to rename</source>
        <translation>双击可重命名</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>组 %1</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>标刻</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Pen that marks it</source>
        <translation>标刻它的笔</translation>
    </message>
    <message>
        <source>Place in the order of marking</source>
        <translation>在标刻顺序中的位置</translation>
    </message>
    <message>
        <source>What kind of shape it is</source>
        <translation>图形的类型</translation>
    </message>
    <message>
        <source>Whether it is hidden: neither shown nor marked</source>
        <translation>是否隐藏：不显示也不标刻</translation>
    </message>
    <message>
        <source>Whether it is locked: neither selected nor moved</source>
        <translation>是否锁定：不能选中也不能移动</translation>
    </message>
    <message>
        <source>Whether it is marked</source>
        <translation>是否标刻</translation>
    </message>
    <message>
        <source>Shapes: %1</source>
        <translation>图形数：%1</translation>
    </message>
</context>
<context>
    <name>studio::HistoryDock</name>
    <message>
        <source>As it was opened</source>
        <translation>打开时的状态</translation>
    </message>
    <message>
        <source>Click a step to go back or forward to it</source>
        <translation>单击某一步即可退回或前进到该步</translation>
    </message>
    <message>
        <source>History</source>
        <translation>历史记录</translation>
    </message>
</context>
<context>
    <name>studio::PreferencesDialog</name>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source> s</source>
        <translation> 秒</translation>
    </message>
    <message>
        <source>&amp;Angle, anticlockwise</source>
        <translation>角度，逆时针为正(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Curves within</source>
        <translation>曲线误差不超过(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Hatch</source>
        <translation>填充(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Height of the field</source>
        <translation>幅面高度(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Left edge at X</source>
        <translation>左边缘 X(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;New drawings have the same</source>
        <translation>新图纸也采用相同设置(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Origin</source>
        <translation>原点(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Outline as well</source>
        <translation>同时标刻轮廓(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Pen</source>
        <translation>笔号(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Recovery copy after</source>
        <translation>自动保存恢复副本(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Spacing</source>
        <translation>间距(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>主题(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Top edge at Y, downward</source>
        <translation>上边缘 Y，向下为正(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Unit of lengths</source>
        <translation>长度单位(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Width of the field</source>
        <translation>幅面宽度(&amp;W)</translation>
    </message>
    <message>
        <source>Appl&amp;y</source>
        <translation>应用(&amp;Y)</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Bottom left corner</source>
        <translation>左下角</translation>
    </message>
    <message>
        <source>Bottom right corner</source>
        <translation>右下角</translation>
    </message>
    <message>
        <source>Canc&amp;el</source>
        <translation>取消(&amp;E)</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>画布</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Distance of the grid lines</source>
        <translation>网格线间距</translation>
    </message>
    <message>
        <source>Downward</source>
        <translation>向下为正</translation>
    </message>
    <message>
        <source>Elsewhere</source>
        <translation>其他位置</translation>
    </message>
    <message>
        <source>Fields have whole millimetres</source>
        <translation>幅面以整毫米计</translation>
    </message>
    <message>
        <source>Grid lines e&amp;very</source>
        <translation>网格线间距固定为(&amp;V)</translation>
    </message>
    <message>
        <source>How far marked lines may lie from the curve that they stand for. Switched off, curves are as coarse as in drawings of earlier versions</source>
        <translation>标刻线段与其所代表曲线的最大偏差。关闭时，曲线与早期版本的图纸一样粗略</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>英寸</translation>
    </message>
    <message>
        <source>Keep the t&amp;ool after a shape was drawn</source>
        <translation>绘制图形后保持当前工具(&amp;O)</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Marks the outline of hatched shapes, too</source>
        <translation>填充图形的轮廓也一并标刻</translation>
    </message>
    <message>
        <source>Middle of the field</source>
        <translation>幅面中心</translation>
    </message>
    <message>
        <source>Millimetres</source>
        <translation>毫米</translation>
    </message>
    <message>
        <source>New shapes</source>
        <translation>新图形</translation>
    </message>
    <message>
        <source>O&amp;K</source>
        <translation>确定(&amp;K)</translation>
    </message>
    <message>
        <source>Otherwise their distance follows the zoom</source>
        <translation>否则间距随缩放变化</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>首选项</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>恢复默认值(&amp;D)</translation>
    </message>
    <message>
        <source>Show the &amp;grid</source>
        <translation>显示网格(&amp;G)</translation>
    </message>
    <message>
        <source>Snap to &amp;shapes</source>
        <translation>吸附到图形(&amp;S)</translation>
    </message>
    <message>
        <source>Snap to g&amp;uides</source>
        <translation>吸附到参考线(&amp;U)</translation>
    </message>
    <message>
        <source>Snap to the g&amp;rid</source>
        <translation>吸附到网格(&amp;R)</translation>
    </message>
    <message>
        <source>So much work a crash may cost at most</source>
        <translation>程序崩溃时最多丢失这么久的工作</translation>
    </message>
    <message>
        <source>This drawing</source>
        <translation>当前图纸</translation>
    </message>
    <message>
        <source>Tolerance of curves</source>
        <translation>曲线公差</translation>
    </message>
    <message>
        <source>Top left corner</source>
        <translation>左上角</translation>
    </message>
    <message>
        <source>Top right corner</source>
        <translation>右上角</translation>
    </message>
    <message>
        <source>Upward</source>
        <translation>向上为正</translation>
    </message>
    <message>
        <source>Y cou&amp;nts</source>
        <translation>Y 轴方向(&amp;N)</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>single lines</source>
        <translation>单向线</translation>
    </message>
    <message>
        <source>zigzag</source>
        <translation>弓形线</translation>
    </message>
    <message>
        <source>E&amp;xported Y counts</source>
        <translation>导出的 Y 方向(&amp;X)</translation>
    </message>
    <message>
        <source>In JSON and CSV, of mark paths and of jobs. Pictures, DXF, HP-GL and G-code count as their form or the machine does</source>
        <translation>用于标刻路径和作业的 JSON 和 CSV。图片、DXF、HP-GL 和 G 代码按其格式或机器的方向</translation>
    </message>
    <message>
        <source>In fields, on rulers and in the status bar</source>
        <translation>用于输入框、标尺和状态栏</translation>
    </message>
</context>
<context>
    <name>studio::Units</name>
    <message>
        <source>in</source>
        <translation>in</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
</context>
<context>
    <name>studio::CleanDialog</name>
    <message>
        <source>&amp;Clean</source>
        <translation>清理(&amp;C)</translation>
    </message>
    <message>
        <source>Clean outlines</source>
        <translation>清理轮廓</translation>
    </message>
    <message>
        <source>Cleaning...</source>
        <translation>正在清理...</translation>
    </message>
    <message>
        <source>Given up: change what is to be cleaned.</source>
        <translation>已放弃：请更改要清理的内容。</translation>
    </message>
</context>
<context>
    <name>studio::CleanForm</name>
    <message>
        <source>&amp;Arcs for points within</source>
        <translation>用圆弧拟合，误差(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Join ends within</source>
        <translation>连接端点，距离(&amp;J)</translation>
    </message>
    <message>
        <source>&amp;Simplify within</source>
        <translation>简化，误差(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Weld areas that overlap</source>
        <translation>焊接重叠的区域(&amp;W)</translation>
    </message>
    <message>
        <source>Arcs of circles in place of fine straight pieces</source>
        <translation>用圆弧代替细小的直线段</translation>
    </message>
    <message>
        <source>Closed outlines become the edge of what they cover together</source>
        <translation>封闭轮廓变为它们共同覆盖区域的边缘</translation>
    </message>
    <message>
        <source>Ends joined: %1</source>
        <translation>连接的端点：%1</translation>
    </message>
    <message>
        <source>Ends so near to each other become one, and outlines that come back to their start are closed</source>
        <translation>这么近的端点合成一点，回到起点的轮廓被封闭</translation>
    </message>
    <message>
        <source>Fewer points, so near to the lines as they are</source>
        <translation>减少点数，与原线的距离不超过此值</translation>
    </message>
    <message>
        <source>Outlines by the nearest end, inner ones before outer ones</source>
        <translation>按最近的端点排列轮廓，先内后外</translation>
    </message>
    <message>
        <source>Outlines closed: %1</source>
        <translation>封闭的轮廓：%1</translation>
    </message>
    <message>
        <source>Outlines: %1 → %2</source>
        <translation>轮廓：%1 → %2</translation>
    </message>
    <message>
        <source>Pieces: %1 → %2</source>
        <translation>线段：%1 → %2</translation>
    </message>
    <message>
        <source>Remove &amp;doubles within</source>
        <translation>去除重复，距离(&amp;D)</translation>
    </message>
    <message>
        <source>Remove pieces without &amp;length</source>
        <translation>去除没有长度的线段(&amp;L)</translation>
    </message>
    <message>
        <source>S&amp;hort ways</source>
        <translation>缩短空程(&amp;H)</translation>
    </message>
    <message>
        <source>Single points go too</source>
        <translation>单独的点也去除</translation>
    </message>
    <message>
        <source>What is drawn twice, or lies on a longer line, is marked once</source>
        <translation>重复绘制或位于更长线段上的部分只标记一次</translation>
    </message>
    <message>
        <source>Without length: %1 pieces</source>
        <translation>没有长度：%1 段</translation>
    </message>
    <message>
        <source>overlaps are filled</source>
        <translation>重叠处填满</translation>
    </message>
    <message>
        <source>overlaps stay open</source>
        <translation>重叠处留空</translation>
    </message>
    <message>
        <source>Drawn twice: %1 pieces, %2</source>
        <translation>重复绘制：%1 段，%2</translation>
    </message>
    <message>
        <source>Jumps: %1 → %2</source>
        <translation>空跳：%1 → %2</translation>
    </message>
</context>
<context>
    <name>studio::OffsetDialog</name>
    <message>
        <source>%1 outlines</source>
        <translation>%1 个轮廓</translation>
    </message>
    <message>
        <source>&amp;Corners:</source>
        <translation>拐角(&amp;C)：</translation>
    </message>
    <message>
        <source>&amp;Distance, outward:</source>
        <translation>向外的距离(&amp;D)：</translation>
    </message>
    <message>
        <source>&amp;Keep the shape itself</source>
        <translation>保留图形本身(&amp;K)</translation>
    </message>
    <message>
        <source>Above 0 outside of the outline, below 0 inside</source>
        <translation>大于 0 在轮廓外侧，小于 0 在内侧</translation>
    </message>
    <message>
        <source>At a distance of 0 it is the shape itself.</source>
        <translation>距离为 0 时就是图形本身。</translation>
    </message>
    <message>
        <source>No closed outline is left at this distance.</source>
        <translation>在此距离上没有剩下封闭轮廓。</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>偏移</translation>
    </message>
    <message>
        <source>cut off</source>
        <translation>切角</translation>
    </message>
    <message>
        <source>pointed</source>
        <translation>尖角</translation>
    </message>
    <message>
        <source>round</source>
        <translation>圆角</translation>
    </message>
</context>
<context>
    <name>studio::PathActions</name>
    <message>
        <source>%1 open runs have no area and stay as they were</source>
        <translation>%1 条开放线没有面积，保持原样</translation>
    </message>
    <message>
        <source>Broken apart into %1 shapes</source>
        <translation>已拆分为 %1 个图形</translation>
    </message>
    <message>
        <source>Combined: all of it has pen %1 now</source>
        <translation>已合并：全部使用笔 %1</translation>
    </message>
    <message>
        <source>Nothing is selected that is not a path already</source>
        <translation>选中的都已经是路径</translation>
    </message>
    <message>
        <source>Nothing would be left: the shapes stay as they are</source>
        <translation>将什么也不剩：图形保持原样</translation>
    </message>
    <message>
        <source>One of the shapes has no closed outline: close it first</source>
        <translation>其中一个图形没有封闭轮廓：请先将其封闭</translation>
    </message>
    <message>
        <source>There was nothing to clean</source>
        <translation>没有可清理的</translation>
    </message>
    <message>
        <source>What is selected has no closed outline</source>
        <translation>选中的图形没有封闭轮廓</translation>
    </message>
    <message>
        <source>What is selected is one outline each: there is nothing to break apart</source>
        <translation>选中的各自只有一个轮廓，没有可拆分的</translation>
    </message>
</context>
<context>
    <name>studio::DialogManners</name>
    <message>
        <source>Studio</source>
        <translation>绘图工作室</translation>
    </message>
</context>
<context>
    <name>studio::HatchList</name>
    <message>
        <source>A further hatch over the same shape, up to eight</source>
        <translation>在同一图形上再加一种填充，最多八种</translation>
    </message>
    <message>
        <source>Add hatch</source>
        <translation>添加填充</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Hatches</source>
        <translation>填充</translation>
    </message>
    <message>
        <source>Marks this hatch earlier</source>
        <translation>让此填充更早标刻</translation>
    </message>
    <message>
        <source>Marks this hatch later</source>
        <translation>让此填充更晚标刻</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Takes away the hatch that the fields show</source>
        <translation>移除当前所示的填充</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上移</translation>
    </message>
</context>
<context>
    <name>studio::ProfileDialog</name>
    <message>
        <source>%1, my own</source>
        <translation>%1（自定义）</translation>
    </message>
    <message>
        <source>%1: a number is needed.</source>
        <translation>%1：需要一个数字。</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>导入(&amp;I)...</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>保存(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>移除(&amp;R)</translation>
    </message>
    <message>
        <source>Acceleration, mm/s²</source>
        <translation>加速度，毫米/秒²</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>左下</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>右下</translation>
    </message>
    <message>
        <source>CSV</source>
        <translation>CSV</translation>
    </message>
    <message>
        <source>DXF</source>
        <translation>DXF</translation>
    </message>
    <message>
        <source>Decimals</source>
        <translation>小数位数</translation>
    </message>
    <message>
        <source>Delay after a jump, µs</source>
        <translation>空跳后延时，微秒</translation>
    </message>
    <message>
        <source>Delay after a mark, µs</source>
        <translation>标刻后延时，微秒</translation>
    </message>
    <message>
        <source>Delay at corners, µs</source>
        <translation>拐角延时，微秒</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>导出(&amp;X)...</translation>
    </message>
    <message>
        <source>Export the machine profile</source>
        <translation>导出机器配置</translation>
    </message>
    <message>
        <source>Exported.</source>
        <translation>已导出。</translation>
    </message>
    <message>
        <source>Fastest marking, mm/s</source>
        <translation>最高标刻速度，毫米/秒</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>G-code</source>
        <translation>G 代码</translation>
    </message>
    <message>
        <source>Galvo: mirrors</source>
        <translation>振镜</translation>
    </message>
    <message>
        <source>Gantry: axes with mass</source>
        <translation>龙门：有质量的轴</translation>
    </message>
    <message>
        <source>HP-GL</source>
        <translation>HP-GL</translation>
    </message>
    <message>
        <source>Height of the field, mm</source>
        <translation>幅面高度，毫米</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>英寸</translation>
    </message>
    <message>
        <source>JSON</source>
        <translation>JSON</translation>
    </message>
    <message>
        <source>Junction deviation, mm</source>
        <translation>拐点偏差，毫米</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Laser mode: power changes on the way</source>
        <translation>激光模式：行进中改变功率</translation>
    </message>
    <message>
        <source>Lines after the job</source>
        <translation>作业之后的行</translation>
    </message>
    <message>
        <source>Lines before the job</source>
        <translation>作业之前的行</translation>
    </message>
    <message>
        <source>Machine</source>
        <translation>机器</translation>
    </message>
    <message>
        <source>Machine and field</source>
        <translation>机器与幅面</translation>
    </message>
    <message>
        <source>Machine profile</source>
        <translation>机器配置</translation>
    </message>
    <message>
        <source>Machine profiles (*.json)</source>
        <translation>机器配置 (*.json)</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中心</translation>
    </message>
    <message>
        <source>Millimetres</source>
        <translation>毫米</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>运动</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Name: &quot;%1&quot; is that of a machine that comes with the program.</source>
        <translation>名称：“%1”是程序自带机器的名称。</translation>
    </message>
    <message>
        <source>Origin</source>
        <translation>原点</translation>
    </message>
    <message>
        <source>S at full power</source>
        <translation>满功率时的 S 值</translation>
    </message>
    <message>
        <source>SVG</source>
        <translation>SVG</translation>
    </message>
    <message>
        <source>Speed of jumps, mm/s</source>
        <translation>空跳速度，毫米/秒</translation>
    </message>
    <message>
        <source>This machine comes with the program and stays as it is: a copy is kept.</source>
        <translation>此机器随程序提供，保持不变：将保存一份副本。</translation>
    </message>
    <message>
        <source>Top left</source>
        <translation>左上</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>右上</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>Width of the field, mm</source>
        <translation>幅面宽度，毫米</translation>
    </message>
    <message>
        <source>Y counts</source>
        <translation>Y 方向</translation>
    </message>
    <message>
        <source>downward</source>
        <translation>向下</translation>
    </message>
    <message>
        <source>upward</source>
        <translation>向上</translation>
    </message>
</context>
<context>
    <name>studio::ProfileStore</name>
    <message>
        <source>The machine profile &quot;%1&quot; cannot be read.</source>
        <translation>无法读取机器配置“%1”。</translation>
    </message>
</context>
<context>
    <name>studio::NodeTool</name>
    <message>
        <source>Nodes: click a path</source>
        <translation>节点：请单击一条路径</translation>
    </message>
    <message>
        <source>Nodes: click or drag a box to select, drag to move, double click on the line to add, Del deletes, Esc ends</source>
        <translation>节点：单击或拖框选择，拖动移动，在线上双击添加，Del 删除，Esc 结束</translation>
    </message>
    <message>
        <source>Nothing would be left of the path: delete the shape instead</source>
        <translation>路径将什么也不剩：请删除图形本身</translation>
    </message>
    <message>
        <source>Select nodes next to each other first</source>
        <translation>请先选择相邻的节点</translation>
    </message>
    <message>
        <source>Select nodes that are no ends first</source>
        <translation>请先选择不是端点的节点</translation>
    </message>
    <message>
        <source>Select smooth nodes first</source>
        <translation>请先选择平滑的节点</translation>
    </message>
    <message>
        <source>Select the nodes at both ends of a curve first</source>
        <translation>请先选择曲线两端的节点</translation>
    </message>
    <message>
        <source>Select the nodes at both ends of a line first</source>
        <translation>请先选择直线两端的节点</translation>
    </message>
    <message>
        <source>Select two ends first</source>
        <translation>请先选择两个端点</translation>
    </message>
    <message>
        <source>This is no path yet: Arrange, Paths, Turn into paths makes it one</source>
        <translation>这还不是路径：请用“排列”、“路径”、“转换为路径”</translation>
    </message>
    <message>
        <source>Too many nodes to edit them one by one: simplify or break apart first</source>
        <translation>节点太多，无法逐个编辑：请先简化或拆分</translation>
    </message>
</context>
<context>
    <name>studio::PathTool</name>
    <message>
        <source>%1, %2°</source>
        <translation>%1，%2°</translation>
    </message>
    <message>
        <source>A path needs two points</source>
        <translation>路径需要两个点</translation>
    </message>
    <message>
        <source>Curve: click points, drag from them to bend. Backspace takes a point back, Return or a double click ends, a click on the first point closes, Esc gives up</source>
        <translation>曲线：单击取点，从点拖动使其弯曲。退格键撤回一点，回车或双击结束，单击第一点封闭，Esc 放弃</translation>
    </message>
    <message>
        <source>Polyline: click point by point. Shift keeps to steps of 15°, Backspace takes a point back, Return or a double click ends, a click on the first point closes, Esc gives up</source>
        <translation>折线：逐点单击。Shift 按 15° 步进，退格键撤回一点，回车或双击结束，单击第一点封闭，Esc 放弃</translation>
    </message>
</context>
<context>
    <name>studio::Reimporter</name>
    <message>
        <source>&quot;%1&quot; was imported again with losses.</source>
        <translation>“%1”已重新导入，但有损失。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported again; its shapes stay as they are.</source>
        <translation>“%1”未重新导入；其图形保持原样。</translation>
    </message>
    <message>
        <source>What is selected came from no file</source>
        <translation>选中的图形不是来自文件</translation>
    </message>
    <message>
        <source>Importing %1 again...</source>
        <translation>正在重新导入 %1...</translation>
    </message>
    <message>
        <source>Re-imported. Shapes that follow their file: %1, new: %2, gone: %3</source>
        <translation>已重新导入：%1 个图形随文件更新，%2 个新增，%3 个消失</translation>
    </message>
</context>
<context>
    <name>studio::MissingCharactersBar</name>
    <message>
        <source>No font here draws all of the text.</source>
        <translation>此处没有能绘制全部文字的字体。</translation>
    </message>
    <message>
        <source>This font does not draw: %1</source>
        <translation>此字体无法绘制：%1</translation>
    </message>
    <message>
        <source>Use %1</source>
        <translation>使用 %1</translation>
    </message>
</context>
<context>
    <name>studio::PlanPanel</name>
    <message>
        <source>Click a line to see what it is.</source>
        <translation>单击线条可查看其内容。</translation>
    </message>
    <message>
        <source>Export job...</source>
        <translation>导出作业...</translation>
    </message>
    <message>
        <source>Nothing speaks against this job.</source>
        <translation>未发现此作业的问题。</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>件数</translation>
    </message>
    <message>
        <source>Pass</source>
        <translation>遍</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>笔</translation>
    </message>
    <message>
        <source>Piece %1 of %2: %3, %4, pen %5, pass %6, from %7 to %8 s</source>
        <translation>第 %1 段，共 %2 段：%3，%4，笔 %5，第 %6 遍，%7 至 %8 秒</translation>
    </message>
    <message>
        <source>Save report...</source>
        <translation>保存报告...</translation>
    </message>
    <message>
        <source>Times by</source>
        <translation>时间依据</translation>
    </message>
    <message>
        <source>To be looked at: %1</source>
        <translation>需要检查：%1</translation>
    </message>
    <message>
        <source>hatch %1</source>
        <translation>填充 %1</translation>
    </message>
    <message>
        <source>outline</source>
        <translation>轮廓</translation>
    </message>
</context>
<context>
    <name>studio::TimesModel</name>
    <message>
        <source>%1 parts</source>
        <translation>%1 件</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>延时</translation>
    </message>
    <message>
        <source>Jumps</source>
        <translation>空跳</translation>
    </message>
    <message>
        <source>Marking</source>
        <translation>标刻</translation>
    </message>
    <message>
        <source>One part</source>
        <translation>一件</translation>
    </message>
    <message>
        <source>Pass %1</source>
        <translation>第 %1 遍</translation>
    </message>
    <message>
        <source>Pen %1</source>
        <translation>笔 %1</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>合计</translation>
    </message>
</context>
<context>
    <name>studio::PictureLookDialog</name>
    <message>
        <source>&amp;Arrows of direction</source>
        <translation>方向箭头(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Jumps, and where the head begins</source>
        <translation>空跳及起始位置(&amp;J)</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>导出(&amp;X)</translation>
    </message>
    <message>
        <source>Picture of the mark paths</source>
        <translation>标刻路径图片</translation>
    </message>
    <message>
        <source>White &amp;background</source>
        <translation>白色背景(&amp;B)</translation>
    </message>
</context>
<context>
    <name>studio::Editor</name>
    <message>
        <source>Job written to %1, files: %2</source>
        <translation>作业已写入 %1，文件数：%2</translation>
    </message>
    <message>
        <source>Mark paths written to %1, shapes: %2</source>
        <translation>标刻路径已写入 %1，图形数：%2</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>已保存到 %1</translation>
    </message>
</context>
<context>
    <name>studio::ImportTools</name>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Drawings (%1)</source>
        <translation>图形 (%1)</translation>
    </message>
    <message>
        <source>Import drawings</source>
        <translation>导入图形</translation>
    </message>
    <message>
        <source>clipboard</source>
        <translation>剪贴板</translation>
    </message>
</context>
<context>
    <name>studio::DocumentationWindow</name>
    <message>
        <source>&amp;Index</source>
        <translation>索引(&amp;I)</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>Documentation</source>
        <translation>开发文档</translation>
    </message>
    <message>
        <source>The documentation is not installed. It comes with the package libztdrawengine-doc.</source>
        <translation>开发文档未安装。它随软件包 libztdrawengine-doc 提供。</translation>
    </message>
</context>
</TS>
