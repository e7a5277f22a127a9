<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ChangeEdits</name>
    <message>
        <source>This property cannot be changed now.</source>
        <translation>当前无法更改此属性。</translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; from the device? This cannot be undone.</source>
        <translation>从设备删除“%1”？此操作无法撤销。</translation>
    </message>
</context>
<context>
    <name>Details</name>
    <message>
        <source>Preview</source>
        <translation>预监</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>节目</translation>
    </message>
    <message>
        <source>Internal clock</source>
        <translation>内部时钟</translation>
    </message>
    <message>
        <source>External signal</source>
        <translation>外部信号</translation>
    </message>
    <message>
        <source>An input</source>
        <translation>某路输入</translation>
    </message>
    <message>
        <source>as the signal</source>
        <translation>同信号</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>对比度</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>亮度</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>色调</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>饱和度</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>伽马</translation>
    </message>
    <message>
        <source>Show pattern</source>
        <translation>显示测试图</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>测试图</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC 地址</translation>
    </message>
    <message>
        <source>Cards</source>
        <translation>板卡</translation>
    </message>
    <message>
        <source>A take swaps preview and programme</source>
        <translation>切换时互换预监与节目</translation>
    </message>
    <message>
        <source>Presets go to</source>
        <translation>预设去向</translation>
    </message>
    <message>
        <source>ZeLK</source>
        <translation>ZeLK</translation>
    </message>
    <message>
        <source>Locked to</source>
        <translation>锁定到</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>Convert</source>
        <translation>转换</translation>
    </message>
    <message>
        <source>Conversion</source>
        <translation>转换方式</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>信号</translation>
    </message>
    <message>
        <source>Colour depth</source>
        <translation>色深</translation>
    </message>
    <message>
        <source>Copy protection (HDCP)</source>
        <translation>版权保护 (HDCP)</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Refresh rate</source>
        <translation>刷新率</translation>
    </message>
    <message>
        <source>Interlaced</source>
        <translation>隔行</translation>
    </message>
    <message>
        <source>Colour space</source>
        <translation>色彩空间</translation>
    </message>
    <message>
        <source>Colour range</source>
        <translation>色彩范围</translation>
    </message>
    <message>
        <source>Show a part</source>
        <translation>显示局部</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Cut out</source>
        <translation>抠像</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Left on the canvas</source>
        <translation>画布上的左边距</translation>
    </message>
    <message>
        <source>Top on the canvas</source>
        <translation>画布上的上边距</translation>
    </message>
    <message>
        <source>Physical width</source>
        <translation>物理宽度</translation>
    </message>
    <message>
        <source>Physical height</source>
        <translation>物理高度</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>已冻结</translation>
    </message>
    <message>
        <source>Faded to black</source>
        <translation>黑场</translation>
    </message>
    <message>
        <source>Duration of the fade</source>
        <translation>黑场时长</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>转场</translation>
    </message>
    <message>
        <source>Duration of the transition</source>
        <translation>转场时长</translation>
    </message>
    <message>
        <source>Direction of the transition</source>
        <translation>转场方向</translation>
    </message>
    <message>
        <source>Edits go to the programme</source>
        <translation>编辑作用于节目</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>信号源</translation>
    </message>
    <message>
        <source>Place in the stack</source>
        <translation>叠放位置</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Monochrome</source>
        <translation>黑白</translation>
    </message>
    <message>
        <source>Inverted colours</source>
        <translation>反色</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>翻转</translation>
    </message>
    <message>
        <source>Show test colour</source>
        <translation>显示测试色</translation>
    </message>
    <message>
        <source>Test colour</source>
        <translation>测试色</translation>
    </message>
    <message>
        <source>Mask edges</source>
        <translation>遮罩边缘</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <source>Show border</source>
        <translation>显示边框</translation>
    </message>
    <message>
        <source>Horizontal width</source>
        <translation>水平宽度</translation>
    </message>
    <message>
        <source>Vertical width</source>
        <translation>垂直宽度</translation>
    </message>
    <message>
        <source>Show shadow</source>
        <translation>显示阴影</translation>
    </message>
    <message>
        <source>Soft edge</source>
        <translation>柔化边缘</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>编号</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>Picture size</source>
        <translation>图片尺寸</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Switching</source>
        <translation>切换</translation>
    </message>
    <message>
        <source>Genlock</source>
        <translation>同步锁相</translation>
    </message>
    <message>
        <source>Dynamic range</source>
        <translation>动态范围</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>接口</translation>
    </message>
    <message>
        <source>Requested format</source>
        <translation>请求的格式</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source>Image quality</source>
        <translation>画质</translation>
    </message>
    <message>
        <source>Cutout</source>
        <translation>抠像</translation>
    </message>
    <message>
        <source>Test pattern</source>
        <translation>测试图</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>屏幕</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>现场</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>图层</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画面</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>蒙版</translation>
    </message>
    <message>
        <source>Border</source>
        <translation>边框</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>阴影</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>台标</translation>
    </message>
    <message>
        <source>Preset of screens</source>
        <translation>屏幕预设</translation>
    </message>
    <message>
        <source>Preset of the device</source>
        <translation>设备预设</translation>
    </message>
    <message>
        <source>No signal</source>
        <translation>无信号</translation>
    </message>
    <message>
        <source>interlaced</source>
        <translation>隔行</translation>
    </message>
    <message>
        <source>%1 × %2, %3 Hz %4</source>
        <extracomment>Width and height in pixels, refresh rate, &quot;interlaced&quot; or nothing</extracomment>
        <translation>%1 × %2，%3 Hz %4</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 像素</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation>类型 %1</translation>
    </message>
</context>
<context>
    <name>LayerSources</name>
    <message>
        <source>Screen %1</source>
        <translation>屏幕 %1</translation>
    </message>
    <message>
        <source>Image %1</source>
        <translation>图片 %1</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <extracomment>Name of a source, and the format of its picture</extracomment>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Actions</name>
    <message>
        <source>%1: %2</source>
        <extracomment>&quot;Undo&quot; or &quot;Redo&quot;, and what the operator did</extracomment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Puts the preview of the selected screens on the programme with their transition.</source>
        <translation>将所选屏幕的预监以其转场切换到节目。</translation>
    </message>
    <message>
        <source>Puts the preview of the selected screens on the programme at once.</source>
        <translation>将所选屏幕的预监立即切换到节目。</translation>
    </message>
    <message>
        <source>Freezes the picture of the selected screens, or releases it.</source>
        <translation>冻结或解冻所选屏幕的画面。</translation>
    </message>
    <message>
        <source>Fades the selected screens to black, or back to the picture.</source>
        <translation>将所选屏幕淡出至黑场，或恢复画面。</translation>
    </message>
    <message>
        <source>Selects all screens of the device.</source>
        <translation>选择设备的所有屏幕。</translation>
    </message>
    <message>
        <source>Takes the last change back.</source>
        <translation>撤回上一次更改。</translation>
    </message>
    <message>
        <source>Makes the change again that was undone last.</source>
        <translation>重新执行上一次撤销的更改。</translation>
    </message>
    <message>
        <source>Moves the selected layer up by one.</source>
        <translation>将所选图层上移一层。</translation>
    </message>
    <message>
        <source>Moves the selected layer down by one.</source>
        <translation>将所选图层下移一层。</translation>
    </message>
    <message>
        <source>Moves the selected layer above all others.</source>
        <translation>将所选图层移到最上层。</translation>
    </message>
    <message>
        <source>Moves the selected layer below all others that are not backgrounds.</source>
        <translation>将所选图层移到除背景外的最下层。</translation>
    </message>
    <message>
        <source>Increases the opacity of the selected layer by 5 percent.</source>
        <translation>将所选图层的不透明度增加 5%。</translation>
    </message>
    <message>
        <source>Reduces the opacity of the selected layer by 5 percent.</source>
        <translation>将所选图层的不透明度减少 5%。</translation>
    </message>
    <message>
        <source>Saves the selected screens as a preset on the device.</source>
        <translation>将所选屏幕保存为设备上的预设。</translation>
    </message>
    <message>
        <source>Opens a device by its address.</source>
        <translation>按地址打开设备。</translation>
    </message>
    <message>
        <source>Disconnects the device and removes it from the list.</source>
        <translation>断开设备并将其从列表移除。</translation>
    </message>
    <message>
        <source>Searches the network for devices, until it is switched off.</source>
        <translation>在网络中搜索设备，直至关闭。</translation>
    </message>
    <message>
        <source>Tries to connect at once instead of after the pause.</source>
        <translation>立即尝试连接，而不等待间隔。</translation>
    </message>
    <message>
        <source>Reads the whole device again.</source>
        <translation>重新读取整个设备。</translation>
    </message>
    <message>
        <source>Takes control of the device unless another client holds it.</source>
        <translation>若无其他客户端持有，则获取设备的控制权。</translation>
    </message>
    <message>
        <source>Takes control of the device even if another client holds it.</source>
        <translation>即使其他客户端持有，也获取设备的控制权。</translation>
    </message>
    <message>
        <source>Gives up control of the device, so that another client can take it.</source>
        <translation>放弃设备的控制权，以便其他客户端获取。</translation>
    </message>
    <message>
        <source>Ends the program. The devices keep their state.</source>
        <translation>结束程序。设备保持其状态。</translation>
    </message>
    <message>
        <source>Enlarges the canvas.</source>
        <translation>放大画布。</translation>
    </message>
    <message>
        <source>Reduces the canvas.</source>
        <translation>缩小画布。</translation>
    </message>
    <message>
        <source>Shows all screens of the device.</source>
        <translation>显示设备的所有屏幕。</translation>
    </message>
    <message>
        <source>Shows the window in dark colours.</source>
        <translation>以深色显示窗口。</translation>
    </message>
    <message>
        <source>Shows the window in light colours.</source>
        <translation>以浅色显示窗口。</translation>
    </message>
    <message>
        <source>Shows the window in the colours of the desktop.</source>
        <translation>以桌面颜色显示窗口。</translation>
    </message>
    <message>
        <source>Copies the selected messages of the log as text, or all if none is selected.</source>
        <translation>以文本复制所选日志消息；未选择时复制全部。</translation>
    </message>
    <message>
        <source>Removes the alert of the live bar.</source>
        <translation>移除现场栏的警报。</translation>
    </message>
    <message>
        <source>Lists all keyboard shortcuts.</source>
        <translation>列出所有键盘快捷键。</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>切换(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>硬切(&amp;C)</translation>
    </message>
    <message>
        <source>F&amp;reeze</source>
        <translation>冻结(&amp;R)</translation>
    </message>
    <message>
        <source>Fade to &amp;black</source>
        <translation>黑场(&amp;B)</translation>
    </message>
    <message>
        <source>Select &amp;all screens</source>
        <translation>全选屏幕(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>R&amp;aise layer</source>
        <translation>上移图层(&amp;A)</translation>
    </message>
    <message>
        <source>L&amp;ower layer</source>
        <translation>下移图层(&amp;O)</translation>
    </message>
    <message>
        <source>Raise layer to &amp;top</source>
        <translation>图层置顶(&amp;T)</translation>
    </message>
    <message>
        <source>Lower layer to botto&amp;m</source>
        <translation>图层置底(&amp;M)</translation>
    </message>
    <message>
        <source>More opa&amp;que</source>
        <translation>增加不透明度(&amp;Q)</translation>
    </message>
    <message>
        <source>L&amp;ess opaque</source>
        <translation>降低不透明度(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Save preset…</source>
        <translation>保存预设(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Add device…</source>
        <translation>添加设备(&amp;A)…</translation>
    </message>
    <message>
        <source>Remo&amp;ve device</source>
        <translation>移除设备(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Find devices</source>
        <translation>查找设备(&amp;F)</translation>
    </message>
    <message>
        <source>Re&amp;connect now</source>
        <translation>立即重连(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation>重新读取(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Take control</source>
        <translation>获取控制权(&amp;T)</translation>
    </message>
    <message>
        <source>F&amp;orce control…</source>
        <translation>强制获取控制权(&amp;O)…</translation>
    </message>
    <message>
        <source>Re&amp;lease control</source>
        <translation>放弃控制权(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
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
        <source>&amp;Fit to window</source>
        <translation>适合窗口(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
    <message>
        <source>As the &amp;system</source>
        <translation>跟随系统(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Copy log</source>
        <translation>复制日志(&amp;C)</translation>
    </message>
    <message>
        <source>Dismiss &amp;alert</source>
        <translation>关闭警报(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Keyboard shortcuts</source>
        <translation>键盘快捷键(&amp;K)</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::AddDeviceDialog</name>
    <message>
        <source>Add a device</source>
        <translation>添加设备</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>IP address or host name of the device</source>
        <translation>设备的 IP 地址或主机名</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>TCP port of the device, 1 to 65535</source>
        <translation>设备的 TCP 端口，1 至 65535</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Opens the device at this address</source>
        <translation>打开此地址的设备</translation>
    </message>
    <message>
        <source>Closes the dialog without a new device</source>
        <translation>关闭对话框，不添加设备</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>地址(&amp;A)：</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>端口(&amp;P)：</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::CanvasView</name>
    <message>
        <source>Canvas</source>
        <translation>画布</translation>
    </message>
    <message>
        <source>No layer is selected.</source>
        <translation>未选择图层。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Changes</name>
    <message>
        <source>&quot;%1&quot; cannot be undone or redone: the device is no longer open.</source>
        <translation>无法撤销或重做“%1”：设备已不再打开。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ChoiceEditor</name>
    <message>
        <source>Code %1</source>
        <translation>代码 %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ControlBar</name>
    <message>
        <source>Control</source>
        <translation>控制权</translation>
    </message>
    <message>
        <source>This panel controls the device.</source>
        <translation>此面板正在控制设备。</translation>
    </message>
    <message>
        <source>Control of the device was released.</source>
        <translation>已放弃设备的控制权。</translation>
    </message>
    <message>
        <source>No device</source>
        <translation>无设备</translation>
    </message>
    <message>
        <source>Not controlled</source>
        <translation>无人控制</translation>
    </message>
    <message>
        <source>Controlled by this panel</source>
        <translation>由此面板控制</translation>
    </message>
    <message>
        <source>Controlled by another client</source>
        <translation>由其他客户端控制</translation>
    </message>
    <message>
        <source>Controlled by %1</source>
        <translation>由 %1 控制</translation>
    </message>
    <message>
        <source>Force control</source>
        <translation>强制获取控制权</translation>
    </message>
    <message>
        <source>Another operator may be working with %1. Take control from them?</source>
        <translation>其他操作员可能正在使用 %1。是否夺取其控制权？</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DemoBar</name>
    <message>
        <source>Demo: a simulated device in this program.</source>
        <translation>演示：本程序中的模拟设备。</translation>
    </message>
    <message>
        <source>Pull the plug</source>
        <translation>拔掉插头</translation>
    </message>
    <message>
        <source>Plug it in again</source>
        <translation>重新插上</translation>
    </message>
    <message>
        <source>Makes the simulated device go away</source>
        <translation>使模拟设备消失</translation>
    </message>
    <message>
        <source>Makes the simulated device come back</source>
        <translation>使模拟设备恢复</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DetailsForm</name>
    <message>
        <source>%1 to %2%3</source>
        <extracomment>The range of a number, and its unit or nothing</extracomment>
        <translation>%1 至 %2%3</translation>
    </message>
    <message>
        <source>This property cannot be changed.</source>
        <translation>此属性无法更改。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DetailsView</name>
    <message>
        <source>Layer</source>
        <translation>图层</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>屏幕</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Kind of object</source>
        <translation>对象种类</translation>
    </message>
    <message>
        <source>Selects whose properties are shown</source>
        <translation>选择显示哪个对象的属性</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>未选择任何对象。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DevicesView</name>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>The devices with their states. The selected one is shown and operated.</source>
        <translation>设备及其状态。所选设备将被显示和操作。</translation>
    </message>
    <message>
        <source>No device yet. Add one by its address, or search the network.</source>
        <translation>尚无设备。请按地址添加，或搜索网络。</translation>
    </message>
    <message>
        <source>Searching the network for devices.</source>
        <translation>正在网络中搜索设备。</translation>
    </message>
    <message>
        <source>The search for devices has ended.</source>
        <translation>设备搜索已结束。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::FilesView</name>
    <message>
        <source>Add…</source>
        <translation>添加…</translation>
    </message>
    <message>
        <source>Sends images from this computer.</source>
        <translation>从此计算机发送图片。</translation>
    </message>
    <message>
        <source>Save a copy…</source>
        <translation>保存副本…</translation>
    </message>
    <message>
        <source>Saves the image on this computer.</source>
        <translation>将图片保存到此计算机。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Renames the selected image (F2).</source>
        <translation>重命名所选图片 (F2)。</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>删除…</translation>
    </message>
    <message>
        <source>Deletes the image from the device.</source>
        <translation>从设备删除图片。</translation>
    </message>
    <message>
        <source>Images on the device</source>
        <translation>设备上的图片</translation>
    </message>
    <message>
        <source>Drop image files here to send them to the device.</source>
        <translation>将图片文件拖到此处以发送到设备。</translation>
    </message>
    <message>
        <source>Type of new images</source>
        <translation>新图片的类型</translation>
    </message>
    <message>
        <source>Images that are added become files of this type.</source>
        <translation>添加的图片将成为此类型的文件。</translation>
    </message>
    <message>
        <source>Add images</source>
        <translation>添加图片</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an image.</source>
        <translation>“%1”不是图片。</translation>
    </message>
    <message>
        <source>The device has no room for another image of this type.</source>
        <translation>设备没有空间容纳更多此类型的图片。</translation>
    </message>
    <message>
        <source>↑ %1</source>
        <extracomment>Name of a file that is sent to the device</extracomment>
        <translation>↑ %1</translation>
    </message>
    <message>
        <source>Save a copy</source>
        <translation>保存副本</translation>
    </message>
    <message>
        <source>↓ %1</source>
        <extracomment>Name of a file that is fetched from the device</extracomment>
        <translation>↓ %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Hint</name>
    <message>
        <source>Select a device to see its screens.</source>
        <translation>选择设备以查看其屏幕。</translation>
    </message>
    <message>
        <source>Not connected. This is the last known state of the device.</source>
        <translation>未连接。这是设备最后已知的状态。</translation>
    </message>
    <message>
        <source>The device is not connected.</source>
        <translation>设备未连接。</translation>
    </message>
    <message>
        <source>Connecting to the device…</source>
        <translation>正在连接设备…</translation>
    </message>
    <message>
        <source>Reading the device…</source>
        <translation>正在读取设备…</translation>
    </message>
    <message>
        <source>The device has no screens.</source>
        <translation>设备没有屏幕。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ImagesModel</name>
    <message>
        <source>%1, %2, %3</source>
        <extracomment>Type of the file, size of the picture, length of the file</extracomment>
        <translation>%1，%2，%3</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerEditor</name>
    <message>
        <source>%1 cannot be changed: another client controls the device.</source>
        <translation>无法更改 %1：另一客户端正在控制设备。</translation>
    </message>
    <message>
        <source>%1 cannot be changed: the device is not connected.</source>
        <translation>无法更改 %1：设备未连接。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerFace</name>
    <message>
        <source>Screen %1</source>
        <translation>屏幕 %1</translation>
    </message>
    <message>
        <source>Source %1/%2</source>
        <translation>信号源 %1/%2</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1×%2i%3</source>
        <translation>%1×%2i%3</translation>
    </message>
    <message>
        <source>%1×%2p%3</source>
        <translation>%1×%2p%3</translation>
    </message>
    <message>
        <source>No source</source>
        <translation>无信号源</translation>
    </message>
    <message>
        <source>No signal</source>
        <translation>无信号</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>已冻结</translation>
    </message>
    <message>
        <source>Test colour</source>
        <translation>测试色</translation>
    </message>
    <message>
        <source>Opacity %1 %</source>
        <translation>不透明度 %1 %</translation>
    </message>
    <message>
        <source>no source</source>
        <translation>无信号源</translation>
    </message>
    <message>
        <source>%1 at %2, %3</source>
        <translation>%1 位于 %2，%3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Image %1</source>
        <translation>图片 %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerMenu</name>
    <message>
        <source>&amp;Source</source>
        <translation>信号源(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Opacity</source>
        <translation>不透明度(&amp;O)</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerSources</name>
    <message>
        <source>No source</source>
        <translation>无信号源</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveBar</name>
    <message>
        <source>Some screens</source>
        <translation>部分屏幕</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>已冻结</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>黑场</translation>
    </message>
    <message>
        <source>Select a device to operate its screens.</source>
        <translation>选择设备以操作其屏幕。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1 is controlled by another client. Take control to operate it.</source>
        <translation>%1 由其他客户端控制。请获取控制权后操作。</translation>
    </message>
    <message>
        <source>Select a screen to operate it.</source>
        <translation>选择屏幕以操作。</translation>
    </message>
    <message>
        <source>Operating %1 of %2.</source>
        <translation>正在操作 %2 的 %1。</translation>
    </message>
    <message>
        <source>%1 is controlled by %2. Take control to operate it.</source>
        <translation>%1 由 %2 控制。请获取控制权后操作。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveButton</name>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveCalls</name>
    <message>
        <source>%1: no answer to the %2 yet.</source>
        <translation>%1：尚无对“%2”的应答。</translation>
    </message>
    <message>
        <source>%1: the connection was lost during the %2. The device is asked for the outcome when it is back.</source>
        <translation>%1：“%2”期间连接丢失。设备恢复后将查询结果。</translation>
    </message>
    <message>
        <source>%1: the device has carried out the %2.</source>
        <translation>%1：设备已执行“%2”。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveOperations</name>
    <message>
        <source>take</source>
        <translation>切换</translation>
    </message>
    <message>
        <source>cut</source>
        <translation>硬切</translation>
    </message>
    <message>
        <source>freeze</source>
        <translation>冻结</translation>
    </message>
    <message>
        <source>release of the freeze</source>
        <translation>解冻</translation>
    </message>
    <message>
        <source>fade to black</source>
        <translation>黑场</translation>
    </message>
    <message>
        <source>fade to the picture</source>
        <translation>恢复画面</translation>
    </message>
    <message>
        <source>move of the T-bar</source>
        <translation>移动 T 杆</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LogView</name>
    <message>
        <source>&amp;Show:</source>
        <translation>显示(&amp;S)：</translation>
    </message>
    <message>
        <source>Messages that are shown</source>
        <translation>显示的消息</translation>
    </message>
    <message>
        <source>Shows all messages, only problems, or every request</source>
        <translation>显示所有消息、仅问题或每个请求</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>The messages of this run, the latest one last</source>
        <translation>本次运行的消息，最新的在最后</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Problems only</source>
        <translation>仅问题</translation>
    </message>
    <message>
        <source>Every request</source>
        <translation>每个请求</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::MainWindow</name>
    <message>
        <source>Operator&apos;s panel</source>
        <translation>操作面板</translation>
    </message>
    <message>
        <source>Parts below the canvas</source>
        <translation>画布下方的部分</translation>
    </message>
    <message>
        <source>Selects presets, sources, images or the log</source>
        <translation>选择预设、信号源、图片或日志</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>设备(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Live</source>
        <translation>现场(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>控制权</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>画布</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详情</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>预设</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>信号源</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Live controls</source>
        <translation>现场控制</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Messages</name>
    <message>
        <source>Detail</source>
        <translation>详细</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>严重程度</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Options</name>
    <message>
        <source>Operates networked video processors.</source>
        <translation>操作联网的视频处理器。</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>显示版本。</translation>
    </message>
    <message>
        <source>Starts with a simulated device. Other devices are neither opened nor stored.</source>
        <translation>以模拟设备启动。不打开也不保存其他设备。</translation>
    </message>
    <message>
        <source>Colours: dark, light or system.</source>
        <translation>颜色：dark、light 或 system。</translation>
    </message>
    <message>
        <source>File that keeps the devices.</source>
        <translation>保存设备的文件。</translation>
    </message>
    <message>
        <source>Devices to open: HOST or HOST:PORT.</source>
        <translation>要打开的设备：HOST 或 HOST:PORT。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a theme; use dark, light or system.</source>
        <translation>“%1”不是主题；请使用 dark、light 或 system。</translation>
    </message>
    <message>
        <source>DEVICE is a device to open: HOST or HOST:PORT.</source>
        <translation>DEVICE 是要打开的设备：HOST 或 HOST:PORT。</translation>
    </message>
    <message>
        <source>The window was closed.</source>
        <translation>窗口已关闭。</translation>
    </message>
    <message>
        <source>The command line is not valid.</source>
        <translation>命令行无效。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetList</name>
    <message>
        <source>&amp;Apply</source>
        <translation>调用(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>重命名(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>删除(&amp;D)…</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetsModel</name>
    <message>
        <source>The layout of this preset is not known.</source>
        <translation>此预设的布局未知。</translation>
    </message>
    <message>
        <source>%1; layers: %2</source>
        <extracomment>Names of screens, number of layers</extracomment>
        <translation>%1；图层：%2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetsView</name>
    <message>
        <source>Presets</source>
        <translation>预设</translation>
    </message>
    <message>
        <source>A click or Return applies a preset.</source>
        <translation>单击或按回车键调用预设。</translation>
    </message>
    <message>
        <source>The device has no presets. Save the first one.</source>
        <translation>设备没有预设。请保存第一个。</translation>
    </message>
    <message>
        <source>Apply to the preview</source>
        <translation>调用到预监</translation>
    </message>
    <message>
        <source>Apply as it was saved</source>
        <translation>按保存时调用</translation>
    </message>
    <message>
        <source>Where presets are applied</source>
        <translation>预设的调用位置</translation>
    </message>
    <message>
        <source>A preset goes to the preview, or restores preview, programme and screens as they were saved.</source>
        <translation>预设调用到预监，或按保存时恢复预监、节目和屏幕。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>删除…</translation>
    </message>
    <message>
        <source>Renames the selected preset (F2).</source>
        <translation>重命名所选预设 (F2)。</translation>
    </message>
    <message>
        <source>Deletes the selected preset from the device.</source>
        <translation>从设备删除所选预设。</translation>
    </message>
    <message>
        <source>Preset %1</source>
        <translation>预设 %1</translation>
    </message>
    <message>
        <source>The device has no room for another preset.</source>
        <translation>设备没有空间容纳更多预设。</translation>
    </message>
    <message>
        <source>The preset &quot;%1&quot; was applied.</source>
        <translation>已调用预设“%1”。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SavePresetDialog</name>
    <message>
        <source>The selected screens: %1</source>
        <translation>所选屏幕：%1</translation>
    </message>
    <message>
        <source>All screens of the device</source>
        <translation>设备的所有屏幕</translation>
    </message>
    <message>
        <source>Save preset</source>
        <translation>保存预设</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名称(&amp;N)</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ScreenButton</name>
    <message>
        <source>Not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Black, frozen</source>
        <translation>黑场，已冻结</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>黑场</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>已冻结</translation>
    </message>
    <message>
        <source>On air</source>
        <translation>播出中</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>屏幕 %1</translation>
    </message>
    <message>
        <source>Selects the screen for take, cut, T-bar, freeze and fade to black. Its state: %1.</source>
        <translation>选择用于切换、硬切、T 杆、冻结和黑场的屏幕。其状态：%1。</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ScreenItem</name>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1，%2，%3</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>已冻结</translation>
    </message>
    <message>
        <source>Faded to black</source>
        <translation>黑场</translation>
    </message>
    <message>
        <source>Test pattern</source>
        <translation>测试图</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>节目</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预监</translation>
    </message>
    <message>
        <source>PGM</source>
        <translation>PGM</translation>
    </message>
    <message>
        <source>PVW</source>
        <translation>PVW</translation>
    </message>
    <message>
        <source>✓ %1</source>
        <translation>✓ %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SelectionFrame</name>
    <message>
        <source>%1, %2  ·  %3</source>
        <translation>%1, %2  ·  %3</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SessionsModel</name>
    <message>
        <source>%1 (%2): %3</source>
        <translation>%1（%2）：%3</translation>
    </message>
    <message>
        <source>Controlled by another client</source>
        <translation>由其他客户端控制</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>已断开</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>正在连接</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>正在读取</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>连接丢失</translation>
    </message>
    <message>
        <source>Reading, %1 %</source>
        <translation>正在读取，%1 %</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1; next attempt at %2</source>
        <translation>%1；下次尝试时间 %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ShortcutsDialog</name>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Effect</source>
        <translation>效果</translation>
    </message>
    <message>
        <source>The keys, the action and what it does</source>
        <translation>按键、操作及其作用</translation>
    </message>
    <message>
        <source>Closes the list</source>
        <translation>关闭列表</translation>
    </message>
    <message>
        <source>Selects or deselects a screen for the live controls.</source>
        <translation>选择或取消选择用于现场控制的屏幕。</translation>
    </message>
    <message>
        <source>Moves to the next control. The space bar then operates a button that has the focus.</source>
        <translation>移到下一个控件。随后空格键操作获得焦点的按钮。</translation>
    </message>
    <message>
        <source>Moves the T-bar while it has the focus.</source>
        <translation>在 T 杆获得焦点时移动它。</translation>
    </message>
    <message>
        <source>On the canvas: selects the next layer of the selected screens.</source>
        <translation>在画布上：选择所选屏幕的下一个图层。</translation>
    </message>
    <message>
        <source>On the canvas: moves the selected layer by 1 pixel, with Shift by 10. Without one: selects scene and screen.</source>
        <translation>在画布上：将所选图层移动 1 像素，按住 Shift 为 10 像素。未选图层时：选择场景和屏幕。</translation>
    </message>
    <message>
        <source>On the canvas: moves the right and lower edges of the selected layer.</source>
        <translation>在画布上：移动所选图层的右边缘和下边缘。</translation>
    </message>
    <message>
        <source>Opens the menu of the selected layer or preset.</source>
        <translation>打开所选图层或预设的菜单。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourceEditor</name>
    <message>
        <source>Another source</source>
        <translation>其他信号源</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourcesModel</name>
    <message>
        <source>Not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>The card does not work</source>
        <translation>板卡不工作</translation>
    </message>
    <message>
        <source>%1, %2 bit</source>
        <extracomment>Format of an input, bits of its colours</extracomment>
        <translation>%1，%2 位</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourcesView</name>
    <message>
        <source>Inputs</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>Show in the selected layer</source>
        <translation>在所选图层中显示</translation>
    </message>
    <message>
        <source>Makes this input the source of the selected layer.</source>
        <translation>将此输入设为所选图层的信号源。</translation>
    </message>
    <message>
        <source>The inputs of the device with their signals. An input can be dragged onto a layer of the canvas.</source>
        <translation>设备的输入及其信号。可将输入拖到画布的图层上。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::StatusLine</name>
    <message>
        <source>Dismiss</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>State of the live controls</source>
        <translation>现场控制的状态</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Not possible</source>
        <translation>不可行</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>Outcome unknown</source>
        <translation>结果未知</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::TBar</name>
    <message>
        <source>T-bar</source>
        <translation>T 杆</translation>
    </message>
    <message>
        <source>Takes by hand: moves from preview to programme, in percent. At 100 percent the device takes.</source>
        <translation>手动切换：从预监移到节目，单位为百分比。到 100% 时设备完成切换。</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::TransferRow</name>
    <message>
        <source>✓ Done</source>
        <translation>✓ 完成</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel: %1</source>
        <translation>取消：%1</translation>
    </message>
    <message>
        <source>Ends the transfer. The device keeps what it had.</source>
        <translation>结束传输。设备保留原有内容。</translation>
    </message>
    <message>
        <source>%1 %, %2/s</source>
        <extracomment>Share of a transfer in percent, bytes per second with their unit</extracomment>
        <translation>%1 %，%2/s</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Close: %1</source>
        <translation>关闭：%1</translation>
    </message>
    <message>
        <source>Removes this line.</source>
        <translation>移除此行。</translation>
    </message>
</context>
<context>
    <name>UndoSteps</name>
    <message>
        <source>rename device</source>
        <translation>重命名设备</translation>
    </message>
    <message>
        <source>change genlock</source>
        <translation>更改同步锁相</translation>
    </message>
    <message>
        <source>change swap at a take</source>
        <translation>更改切换时互换</translation>
    </message>
    <message>
        <source>change ZeLK</source>
        <translation>更改 ZeLK</translation>
    </message>
    <message>
        <source>change groups</source>
        <translation>更改组</translation>
    </message>
    <message>
        <source>change backup inputs</source>
        <translation>更改备份输入</translation>
    </message>
    <message>
        <source>change output mapping</source>
        <translation>更改输出映射</translation>
    </message>
    <message>
        <source>change dynamic range</source>
        <translation>更改动态范围</translation>
    </message>
    <message>
        <source>change where presets go</source>
        <translation>更改预设去向</translation>
    </message>
    <message>
        <source>rename interface</source>
        <translation>重命名接口</translation>
    </message>
    <message>
        <source>change test pattern</source>
        <translation>更改测试图</translation>
    </message>
    <message>
        <source>change format</source>
        <translation>更改格式</translation>
    </message>
    <message>
        <source>change image quality</source>
        <translation>更改画质</translation>
    </message>
    <message>
        <source>crop input</source>
        <translation>裁剪输入</translation>
    </message>
    <message>
        <source>change cutout</source>
        <translation>更改抠像</translation>
    </message>
    <message>
        <source>change copy protection</source>
        <translation>更改版权保护</translation>
    </message>
    <message>
        <source>change colour depth</source>
        <translation>更改色深</translation>
    </message>
    <message>
        <source>change colour space</source>
        <translation>更改色彩空间</translation>
    </message>
    <message>
        <source>change colour range</source>
        <translation>更改色彩范围</translation>
    </message>
    <message>
        <source>change format mapping</source>
        <translation>更改格式映射</translation>
    </message>
    <message>
        <source>change screen</source>
        <translation>更改屏幕</translation>
    </message>
    <message>
        <source>rename screen</source>
        <translation>重命名屏幕</translation>
    </message>
    <message>
        <source>change background</source>
        <translation>更改背景</translation>
    </message>
    <message>
        <source>move screen</source>
        <translation>移动屏幕</translation>
    </message>
    <message>
        <source>change physical size</source>
        <translation>更改物理尺寸</translation>
    </message>
    <message>
        <source>change where edits go</source>
        <translation>更改编辑去向</translation>
    </message>
    <message>
        <source>select screen</source>
        <translation>选择屏幕</translation>
    </message>
    <message>
        <source>freeze</source>
        <translation>冻结</translation>
    </message>
    <message>
        <source>fade to black</source>
        <translation>黑场</translation>
    </message>
    <message>
        <source>change transition</source>
        <translation>更改转场</translation>
    </message>
    <message>
        <source>create layer</source>
        <translation>创建图层</translation>
    </message>
    <message>
        <source>change stacking order</source>
        <translation>更改叠放顺序</translation>
    </message>
    <message>
        <source>change layer</source>
        <translation>更改图层</translation>
    </message>
    <message>
        <source>change source</source>
        <translation>更改信号源</translation>
    </message>
    <message>
        <source>move layer</source>
        <translation>移动图层</translation>
    </message>
    <message>
        <source>change mask</source>
        <translation>更改蒙版</translation>
    </message>
    <message>
        <source>change test colour</source>
        <translation>更改测试色</translation>
    </message>
    <message>
        <source>change opacity</source>
        <translation>更改不透明度</translation>
    </message>
    <message>
        <source>change shadow</source>
        <translation>更改阴影</translation>
    </message>
    <message>
        <source>change border</source>
        <translation>更改边框</translation>
    </message>
    <message>
        <source>select layer</source>
        <translation>选择图层</translation>
    </message>
    <message>
        <source>change under-monitor display</source>
        <translation>更改源名显示 (UMD)</translation>
    </message>
    <message>
        <source>change cut and fill</source>
        <translation>更改 Cut 和 Fill</translation>
    </message>
    <message>
        <source>remove layer</source>
        <translation>移除图层</translation>
    </message>
    <message>
        <source>rename file</source>
        <translation>重命名文件</translation>
    </message>
    <message>
        <source>%1 on %2</source>
        <extracomment>What the operator did, the name of the device</extracomment>
        <translation>%2 上的%1</translation>
    </message>
    <message>
        <source>%1 on %2, not connected</source>
        <translation>%2 上的%1，未连接</translation>
    </message>
</context>
</TS>
