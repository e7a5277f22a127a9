<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Ctl</name>
    <message>
        <source>the closing quote is missing</source>
        <translation>缺少右引号</translation>
    </message>
    <message>
        <source>expected a space after the closing quote</source>
        <translation>右引号后应有空格</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a file type; use 0 to %2 or one of: %3</source>
        <translation>“%1”不是文件类型；请使用 0 至 %2 或：%3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid file ID (0 to %2)</source>
        <translation>“%1”不是有效的文件 ID（0 至 %2）</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of milliseconds above 0</source>
        <translation>“%1”不是大于 0 的毫秒数</translation>
    </message>
    <message>
        <source>%1 Did you mean --%2?</source>
        <translation>%1 是否指 --%2？</translation>
    </message>
    <message>
        <source>%1 takes %2</source>
        <translation>%1 的参数为 %2</translation>
    </message>
    <message>
        <source>expected a command; --help lists all commands</source>
        <translation>缺少命令；--help 列出所有命令</translation>
    </message>
    <message>
        <source>--merge goes neither with --defaults nor with --dry-run</source>
        <translation>--merge 不能与 --defaults 或 --dry-run 同用</translation>
    </message>
    <message>
        <source>; give them, or send their defaults with --defaults</source>
        <translation>；请给出它们，或用 --defaults 发送默认值</translation>
    </message>
    <message>
        <source>--merge needs a write and its record</source>
        <translation>--merge 需要写操作及其记录</translation>
    </message>
    <message>
        <source>expected an operation</source>
        <translation>缺少操作</translation>
    </message>
    <message>
        <source>The device does not say which client holds control.</source>
        <translation>设备未说明哪个客户端持有控制权。</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>无人</translation>
    </message>
    <message>
        <source>This client holds control until Ctrl-C.</source>
        <translation>此客户端持有控制权，直至 Ctrl-C。</translation>
    </message>
    <message>
        <source>Control ended with the connection.</source>
        <translation>控制权随连接结束。</translation>
    </message>
    <message>
        <source>Another client has taken control.</source>
        <translation>另一客户端已获取控制权。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not who, take, release or force</source>
        <translation>“%1”不是 who、take、release 或 force</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not ADDRESS[:PORT]</source>
        <translation>“%1”不是 ADDRESS[:PORT]</translation>
    </message>
    <message>
        <source>No device answered.</source>
        <translation>没有设备应答。</translation>
    </message>
    <message>
        <source>TYPE ID NAME BYTES HASH PIXELS</source>
        <translation>类型 ID 名称 字节 散列 像素</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;%2; --help lists all commands</source>
        <translation>未知命令“%1”%2；--help 列出所有命令</translation>
    </message>
    <message>
        <source>SLOT TYPE MODEL MEASUREMENT VALUE MIN MAX STATE</source>
        <translation>插槽 类型 型号 测量 值 最小 最大 状态</translation>
    </message>
    <message>
        <source>good</source>
        <translation>正常</translation>
    </message>
    <message>
        <source>faulty</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>SLOT TYPE MODEL SECTION VERSION</source>
        <translation>插槽 类型 型号 部分 版本</translation>
    </message>
    <message>
        <source>device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>The self check reports a fault in %1.</source>
        <translation>自检报告 %1 有故障。</translation>
    </message>
    <message>
        <source>%1 cannot be merged: no read returns what it writes</source>
        <translation>无法合并 %1：没有读操作返回其写入的内容</translation>
    </message>
    <message>
        <source>%1: the device has no object with this identity</source>
        <translation>%1：设备没有此标识的对象</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid screen ID (0 to 255)</source>
        <translation>“%1”不是有效的屏幕 ID（0 至 255）</translation>
    </message>
    <message>
        <source>The device has no screen %1.</source>
        <translation>设备没有屏幕 %1。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>“%1”不是数字</translation>
    </message>
    <message>
        <source>shows and controls video processors from a terminal</source>
        <translation>从终端查看和控制视频处理器</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a kind of files; use all, none or some of: %2</source>
        <translation>“%1”不是文件种类；请使用 all、none 或以下若干项：%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not WIDTHxHEIGHT</source>
        <translation>“%1”不是 WIDTHxHEIGHT</translation>
    </message>
    <message>
        <source>%1 has %2 bytes. The device could not return more than %3: a client takes at most %4 packets, and the packets of this device have %5 bytes.</source>
        <translation>%1 有 %2 字节。设备最多能返回 %3：客户端最多接收 %4 个数据包，而该设备的数据包为 %5 字节。</translation>
    </message>
    <message>
        <source>The device has the file %1 %2 (&quot;%3&quot;). Replace it with --force, or leave --id out.</source>
        <translation>设备已有文件 %1 %2（“%3”）。请用 --force 替换，或省略 --id。</translation>
    </message>
    <message>
        <source>The device has no free ID for a file of the type %1.</source>
        <translation>设备没有可用于 %1 类型文件的空闲 ID。</translation>
    </message>
    <message>
        <source>%1: code %2, type %3, filters %4, %5 bytes</source>
        <translation>%1：代码 %2，类型 %3，过滤 %4，%5 字节</translation>
    </message>
    <message>
        <source>Cannot read %1: %2.</source>
        <translation>无法读取 %1：%2。</translation>
    </message>
    <message>
        <source>The device differs from the document: </source>
        <translation>设备与文档不同： </translation>
    </message>
    <message>
        <source>The device could not be read completely.</source>
        <translation>无法完整读取设备。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not HOST[:PORT]</source>
        <translation>“%1”不是 HOST[:PORT]</translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation>%1 为空</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;%2; &quot;tavoroctl list&quot; lists all operations</source>
        <translation>未知操作“%1”%2；“tavoroctl list”列出所有操作</translation>
    </message>
    <message>
        <source>The device continues with the upgrade.</source>
        <translation>设备继续升级。</translation>
    </message>
    <message>
        <source>slot %1, type %2</source>
        <translation>插槽 %1，类型 %2</translation>
    </message>
    <message>
        <source>upgrade</source>
        <translation>升级</translation>
    </message>
    <message>
        <source>The upgrade failed at %1 %.</source>
        <translation>升级在 %1 % 处失败。</translation>
    </message>
    <message>
        <source>The upgrade is done.</source>
        <translation>升级完成。</translation>
    </message>
    <message>
        <source>written</source>
        <translation>已写入</translation>
    </message>
    <message>
        <source>failed with result %1</source>
        <translation>失败，结果 %1</translation>
    </message>
    <message>
        <source>Interrupted.</source>
        <translation>已中断。</translation>
    </message>
    <message>
        <source>Following the upgrade that is running on the device.</source>
        <translation>正在跟踪设备上进行的升级。</translation>
    </message>
    <message>
        <source>Watching %1; press Ctrl-C to stop.</source>
        <translation>正在监视 %1；按 Ctrl-C 停止。</translation>
    </message>
    <message>
        <source>Connection lost.</source>
        <translation>连接已丢失。</translation>
    </message>
    <message>
        <source>Reconnected.</source>
        <translation>已重新连接。</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>无</translation>
    </message>
    <message>
        <source>interface %1</source>
        <translation>接口 %1</translation>
    </message>
    <message>
        <source>screen %1</source>
        <translation>屏幕 %1</translation>
    </message>
    <message>
        <source>screen %1, %2, layer %3 (type %4)</source>
        <translation>屏幕 %1，%2，图层 %3（类型 %4）</translation>
    </message>
    <message>
        <source>file %1</source>
        <translation>文件 %1</translation>
    </message>
    <message>
        <source>transfer of type %1 at %2 %, status %3</source>
        <translation>类型 %1 的传输进度 %2 %，状态 %3</translation>
    </message>
    <message>
        <source>new</source>
        <translation>新增</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>已移除</translation>
    </message>
    <message>
        <source>interface %1.%2.%3</source>
        <translation>接口 %1.%2.%3</translation>
    </message>
    <message>
        <source>file %1:%2</source>
        <translation>文件 %1:%2</translation>
    </message>
    <message>
        <source>%1: unknown key &quot;%2&quot;%3</source>
        <translation>%1：未知键“%2”%3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list</source>
        <translation>“%1”不是列表</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an object</source>
        <translation>“%1”不是对象</translation>
    </message>
    <message>
        <source>element %1 of &quot;%2&quot; does not identify an object</source>
        <translation>“%2”的元素 %1 未标识对象</translation>
    </message>
    <message>
        <source>%1 is in the document twice</source>
        <translation>%1 在文档中出现两次</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>&quot;formatVersion&quot; is not %1</source>
        <translation>“formatVersion”不是 %1</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>swap</source>
        <translation>交换</translation>
    </message>
    <message>
        <source>genlock signal</source>
        <translation>同步锁相信号</translation>
    </message>
    <message>
        <source>power supplies</source>
        <translation>电源</translation>
    </message>
    <message>
        <source>cards</source>
        <translation>板卡</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>组</translation>
    </message>
    <message>
        <source>INTERFACE TYPE NAME TIMING DEPTH HDCP</source>
        <translation>接口 类型 名称 时序 色深 HDCP</translation>
    </message>
    <message>
        <source>SCREEN NAME WINDOW FREEZE FTB T-BAR OUTPUTS</source>
        <translation>屏幕 名称 窗口 冻结 FTB T杆 输出</translation>
    </message>
    <message>
        <source>LAYER SCREEN SCENE TYPE Z NAME SOURCE WINDOW OPACITY</source>
        <translation>图层 屏幕 场景 类型 Z 名称 信号源 窗口 不透明度</translation>
    </message>
    <message>
        <source>Cannot write standard output: %1.</source>
        <translation>无法写入标准输出：%1。</translation>
    </message>
    <message>
        <source>line %1 of the batch: </source>
        <translation>批处理第 %1 行： </translation>
    </message>
    <message>
        <source>%1 (type %2)</source>
        <translation>%1（类型 %2）</translation>
    </message>
    <message>
        <source>%1x%2 at %3,%4</source>
        <translation>%1x%2 位于 %3,%4</translation>
    </message>
    <message>
        <source>no signal</source>
        <translation>无信号</translation>
    </message>
    <message>
        <source>preview</source>
        <translation>预监</translation>
    </message>
    <message>
        <source>programme</source>
        <translation>节目</translation>
    </message>
    <message>
        <source>slot %1</source>
        <translation>插槽 %1</translation>
    </message>
    <message>
        <source>%1 connectors</source>
        <translation>%1 个连接器</translation>
    </message>
    <message>
        <source>online</source>
        <translation>在线</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>离线</translation>
    </message>
    <message>
        <source>works</source>
        <translation>正常</translation>
    </message>
    <message>
        <source>fails</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>on screen %1</source>
        <translation>在屏幕 %1 上</translation>
    </message>
    <message>
        <source>layer %1</source>
        <translation>图层 %1</translation>
    </message>
    <message>
        <source>opacity %1</source>
        <translation>不透明度 %1</translation>
    </message>
    <message>
        <source>frozen</source>
        <translation>已冻结</translation>
    </message>
    <message>
        <source>faded to black</source>
        <translation>黑场</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 字节</translation>
    </message>
    <message>
        <source>files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>%1  %2  MAC %3  serial number %4  model %5  %6</source>
        <translation>%1  %2  MAC %3  序列号 %4  型号 %5  %6</translation>
    </message>
    <message>
        <source>inputs</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>outputs</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>剩余 %1</translation>
    </message>
    <message>
        <source>a status that only this device defines</source>
        <translation>仅由该设备定义的状态</translation>
    </message>
    <message>
        <source>The devices at %1 and %2 report the same identity; a batch cannot use both.</source>
        <translation>%1 和 %2 处的设备报告相同的标识；一个批处理不能同时使用两者。</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>标准输入</translation>
    </message>
    <message>
        <source>%1 is too long: a file has at most %2 bytes.</source>
        <translation>%1 过长：文件最多 %2 字节。</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>标准输出</translation>
    </message>
    <message>
        <source>Cannot write %1: %2.</source>
        <translation>无法写入 %1：%2。</translation>
    </message>
    <message>
        <source>Received %1 bytes, but the device announced %2.</source>
        <translation>收到 %1 字节，但设备通告为 %2。</translation>
    </message>
    <message>
        <source>The checksum of the received file does not match the one the device reports.</source>
        <translation>所收文件的校验和与设备报告的不符。</translation>
    </message>
    <message>
        <source>Received %1 bytes in %2 packets, but the device announced %3 bytes.</source>
        <translation>在 %2 个数据包中收到 %1 字节，但设备通告为 %3 字节。</translation>
    </message>
    <message>
        <source>The device may have the file.</source>
        <translation>设备可能已有该文件。</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>Print JSON, also for errors.</source>
        <translation>输出 JSON，错误亦然。</translation>
    </message>
    <message>
        <source>Print only answers and errors.</source>
        <translation>仅输出应答和错误。</translation>
    </message>
    <message>
        <source>Wait at most MS milliseconds for each answer (as long as the library waits, up to 200 s).</source>
        <translation>每次应答最多等待 MS 毫秒（与库的等待时间相同，最长 200 秒）。</translation>
    </message>
    <message>
        <source>Wait MS milliseconds for a device to be ready (5000).</source>
        <translation>等待设备就绪 MS 毫秒（5000）。</translation>
    </message>
    <message>
        <source>Show the log on standard error.</source>
        <translation>在标准错误上显示日志。</translation>
    </message>
    <message>
        <source>Show the version of the program.</source>
        <translation>显示程序版本。</translation>
    </message>
    <message>
        <source>Print the writes as lines of a batch, and make none of them.</source>
        <translation>将写操作以批处理行输出，但不执行。</translation>
    </message>
    <message>
        <source>Send missing keys of a record at their defaults.</source>
        <translation>以默认值发送记录中缺少的键。</translation>
    </message>
    <message>
        <source>Print the requests, and send nothing.</source>
        <translation>输出请求，但不发送。</translation>
    </message>
    <message>
        <source>Send missing keys of a record as the device has them.</source>
        <translation>以设备当前值发送记录中缺少的键。</translation>
    </message>
    <message>
        <source>End after the first call that fails.</source>
        <translation>在首次调用失败后结束。</translation>
    </message>
    <message>
        <source>Print the request, and send nothing.</source>
        <translation>输出请求，但不发送。</translation>
    </message>
    <message>
        <source>Type of the file on the device (background).</source>
        <translation>设备上文件的类型（background）。</translation>
    </message>
    <message>
        <source>Replace a file that the device has.</source>
        <translation>替换设备已有的文件。</translation>
    </message>
    <message>
        <source>ID of the file on the device (a free one, which is printed).</source>
        <translation>设备上文件的 ID（默认为空闲 ID，并会输出）。</translation>
    </message>
    <message>
        <source>Name of the file on the device (that of FILE).</source>
        <translation>设备上文件的名称（默认为 FILE 的名称）。</translation>
    </message>
    <message>
        <source>Size of an image in pixels.</source>
        <translation>图片尺寸，单位为像素。</translation>
    </message>
    <message>
        <source>Restart the device afterwards, and wait until it is back.</source>
        <translation>随后重启设备，并等待其恢复。</translation>
    </message>
    <message>
        <source>Type of the preset (screen-preset).</source>
        <translation>预设的类型（screen-preset）。</translation>
    </message>
    <message>
        <source>Name of the preset (&quot;Preset ID&quot;).</source>
        <translation>预设的名称（“Preset ID”）。</translation>
    </message>
    <message>
        <source>How to apply it, a number that the device defines (0).</source>
        <translation>调用方式，由设备定义的数字（0）。</translation>
    </message>
    <message>
        <source>Type of the file (10).</source>
        <translation>文件的类型（10）。</translation>
    </message>
    <message>
        <source>Name of the project (&quot;Project ID&quot;).</source>
        <translation>工程的名称（“Project ID”）。</translation>
    </message>
    <message>
        <source>Kinds of files that it contains, such as logo,preset; or none (all).</source>
        <translation>所含文件的种类，例如 logo,preset；或 none（all）。</translation>
    </message>
    <message>
        <source>Write the capture to OUT for Wireshark instead; - is stdout.</source>
        <translation>改为将抓包写入 OUT 供 Wireshark 使用；- 为标准输出。</translation>
    </message>
    <message>
        <source>Writes to the device what differs in FILE, a setup that sync wrote; - is stdin.</source>
        <translation>将 FILE（sync 所写的设置）中的差异写入设备；- 为标准输入。</translation>
    </message>
    <message>
        <source>Makes one call per line of standard input. Without HOST, each line begins with a host.</source>
        <translation>对标准输入的每行执行一次调用。无 HOST 时，每行以主机开头。</translation>
    </message>
    <message>
        <source>Calls one operation: a write takes its record as JSON, a read its filters as numbers.</source>
        <translation>调用一个操作：写操作以 JSON 给出记录，读操作以数字给出过滤条件。</translation>
    </message>
    <message>
        <source>Shows which client holds control, holds it until Ctrl-C, or ends the control of another.</source>
        <translation>显示哪个客户端持有控制权，持有控制权直至 Ctrl-C，或结束他人的控制。</translation>
    </message>
    <message>
        <source>Shows what apply would change on the device; ends with 1 if it would change something.</source>
        <translation>显示 apply 将在设备上更改的内容；若有更改则以 1 结束。</translation>
    </message>
    <message>
        <source>Lists the devices on the local network, or those that answer at ADDRESS.</source>
        <translation>列出本地网络上的设备，或在 ADDRESS 应答的设备。</translation>
    </message>
    <message>
        <source>Lists the files on the device.</source>
        <translation>列出设备上的文件。</translation>
    </message>
    <message>
        <source>Shows the help of the program or of a command.</source>
        <translation>显示程序或命令的帮助。</translation>
    </message>
    <message>
        <source>Lists all operations or those of a class, or shows the record that OPERATION takes.</source>
        <translation>列出所有操作或某类的操作，或显示 OPERATION 所需的记录。</translation>
    </message>
    <message>
        <source>Applies a preset.</source>
        <translation>调用预设。</translation>
    </message>
    <message>
        <source>Stores the screens with these IDs as a preset; all screens without an ID.</source>
        <translation>将这些 ID 的屏幕保存为预设；未给出 ID 时为所有屏幕。</translation>
    </message>
    <message>
        <source>Applies a project.</source>
        <translation>应用工程。</translation>
    </message>
    <message>
        <source>Stores all screens, with all files or some kinds of them, as a project.</source>
        <translation>将所有屏幕连同全部或部分种类的文件保存为工程。</translation>
    </message>
    <message>
        <source>Fetches a file from the device into FILE, completely or not at all; - is stdout.</source>
        <translation>将设备上的文件取到 FILE，要么完整，要么不取；- 为标准输出。</translation>
    </message>
    <message>
        <source>Sends FILE to the device; - is standard input.</source>
        <translation>将 FILE 发送到设备；- 为标准输入。</translation>
    </message>
    <message>
        <source>Restarts the device.</source>
        <translation>重启设备。</translation>
    </message>
    <message>
        <source>Shows the connections and frames of a capture.</source>
        <translation>显示抓包中的连接和帧。</translation>
    </message>
    <message>
        <source>Shows the measurements of the device; ends with 1 if one is out of its range.</source>
        <translation>显示设备的测量值；若有超出范围则以 1 结束。</translation>
    </message>
    <message>
        <source>Shows the device, its interfaces, screens and layers as the device reports them.</source>
        <translation>显示设备及其报告的接口、屏幕和图层。</translation>
    </message>
    <message>
        <source>Reads the whole device into the model and shows the model.</source>
        <translation>将整个设备读入模型并显示模型。</translation>
    </message>
    <message>
        <source>Starts an upgrade from a package on the device, or follows the running one.</source>
        <translation>使用设备上的升级包开始升级，或跟踪正在进行的升级。</translation>
    </message>
    <message>
        <source>Shows the versions of the device and of its units.</source>
        <translation>显示设备及其单元的版本。</translation>
    </message>
    <message>
        <source>Reads the devices as sync does, then shows changes of their models until Ctrl-C.</source>
        <translation>像 sync 一样读取设备，然后显示其模型的变化，直至 Ctrl-C。</translation>
    </message>
    <message>
        <source>Success. Also an interrupted watch.</source>
        <translation>成功。也包括被中断的 watch。</translation>
    </message>
    <message>
        <source>Something else failed; for diff: there are differences.</source>
        <translation>其他失败；对 diff：存在差异。</translation>
    </message>
    <message>
        <source>The command line or an input is not valid; nothing was sent for it.</source>
        <translation>命令行或输入无效；未为其发送任何内容。</translation>
    </message>
    <message>
        <source>The device could not be reached, or the connection was lost during a read.</source>
        <translation>无法访问设备，或在读取期间连接丢失。</translation>
    </message>
    <message>
        <source>The device refused the request; it changed nothing.</source>
        <translation>设备拒绝了请求；未作更改。</translation>
    </message>
    <message>
        <source>A read was not answered in time.</source>
        <translation>读取未及时得到应答。</translation>
    </message>
    <message>
        <source>A write was not answered: the device may have carried it out.</source>
        <translation>写入未得到应答：设备可能已执行。</translation>
    </message>
    <message>
        <source>Standard output could not be written.</source>
        <translation>无法写入标准输出。</translation>
    </message>
    <message>
        <source>The command was interrupted by a signal.</source>
        <translation>命令被信号中断。</translation>
    </message>
    <message>
        <source>unknown command, or the device does not support it with this type</source>
        <translation>未知命令，或设备不支持该类型的命令</translation>
    </message>
    <message>
        <source>the command does not accept this body</source>
        <translation>该命令不接受此内容</translation>
    </message>
    <message>
        <source>the body or the filters name an object that does not exist</source>
        <translation>内容或过滤条件指定了不存在的对象</translation>
    </message>
    <message>
        <source>a value is out of range</source>
        <translation>有值超出范围</translation>
    </message>
    <message>
        <source>not the expected packet of a split exchange</source>
        <translation>不是分段交互所期望的数据包</translation>
    </message>
    <message>
        <source>the answer whose further packet was requested is not kept</source>
        <translation>所请求后续数据包的应答未保留</translation>
    </message>
    <message>
        <source>the packet, or the whole of a split write, is longer than the device accepts</source>
        <translation>数据包或整个分段写入超出设备可接受的长度</translation>
    </message>
    <message>
        <source>not possible now, for example because of other work or of a limit</source>
        <translation>当前不可行，例如因其他工作或限制</translation>
    </message>
    <message>
        <source>length or hash of a file&apos;s content differ from those announced</source>
        <translation>文件内容的长度或散列与通告不符</translation>
    </message>
    <message>
        <source>storage is full or has failed</source>
        <translation>存储已满或故障</translation>
    </message>
    <message>
        <source>another client holds control of the device</source>
        <translation>另一客户端持有设备的控制权</translation>
    </message>
    <message>
        <source>the device&apos;s data was changed by another client: synchronise first</source>
        <translation>设备数据已被另一客户端更改：请先同步</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Usage: %1</source>
        <translation>用法：%1</translation>
    </message>
    <message>
        <source>Show the help.</source>
        <translation>显示帮助。</translation>
    </message>
    <message>
        <source>Show the version of the program.</source>
        <translation>显示程序版本。</translation>
    </message>
    <message>
        <source>Commands:</source>
        <translation>命令：</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>选项：</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>退出状态：</translation>
    </message>
    <message>
        <source>Options of the command:</source>
        <translation>该命令的选项：</translation>
    </message>
    <message>
        <source>Options of all commands:</source>
        <translation>所有命令的选项：</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>summary</comment>
        <translation>%1。</translation>
    </message>
</context>
<context>
    <name>Sim</name>
    <message>
        <source>expected a number from %1 to %2</source>
        <translation>应为 %1 至 %2 的数字</translation>
    </message>
    <message>
        <source>expected %1 hexadecimal digits</source>
        <translation>应为 %1 位十六进制数字</translation>
    </message>
    <message>
        <source>expected an IP address</source>
        <translation>应为 IP 地址</translation>
    </message>
    <message>
        <source>A simulated video processor, for tests and demonstrations.</source>
        <translation>模拟的视频处理器，用于测试和演示。</translation>
    </message>
    <message>
        <source>Console, one command per line on standard input or on the control port:</source>
        <translation>控制台，在标准输入或控制端口上每行一条命令：</translation>
    </message>
    <message>
        <source>help, quit (standard input only)</source>
        <translation>help、quit（仅标准输入）</translation>
    </message>
    <message>
        <source>RULE is %1. Faults:</source>
        <translation>RULE 为 %1。故障：</translation>
    </message>
    <message>
        <source>Scenarios: %1.</source>
        <translation>场景脚本：%1。</translation>
    </message>
    <message>
        <source>Do not answer discovery requests.</source>
        <translation>不应答发现请求。</translation>
    </message>
    <message>
        <source>Log each exchange on standard error.</source>
        <translation>在标准错误上记录每次交互。</translation>
    </message>
    <message>
        <source>Log each exchange with its bodies.</source>
        <translation>记录每次交互及其内容。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid value for --%2%3.</source>
        <translation>“%1”不是 --%2 的有效值%3。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an option.</source>
        <translation>“%1”不是选项。</translation>
    </message>
    <message>
        <source>The device has ended.</source>
        <translation>设备已结束。</translation>
    </message>
    <message>
        <source>The device cannot listen.</source>
        <translation>设备无法侦听。</translation>
    </message>
    <message>
        <source>The command line is not valid.</source>
        <translation>命令行无效。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid %2 (%3)</source>
        <translation>“%1”不是有效的 %2（%3）</translation>
    </message>
    <message>
        <source>expected a number</source>
        <translation>应为数字</translation>
    </message>
    <message>
        <source>no such object</source>
        <translation>没有该对象</translation>
    </message>
    <message>
        <source>timing not supported</source>
        <translation>不支持该时序</translation>
    </message>
    <message>
        <source>unknown command: %1</source>
        <translation>未知命令：%1</translation>
    </message>
    <message>
        <source>usage: %1 %2</source>
        <translation>用法：%1 %2</translation>
    </message>
    <message>
        <source>&quot;repeat&quot; must be the last line</source>
        <translation>“repeat”必须是最后一行</translation>
    </message>
    <message>
        <source>usage: wait MILLISECONDS</source>
        <translation>用法：wait MILLISECONDS</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>a scenario that repeats needs a pause (wait MILLISECONDS)</source>
        <translation>重复的场景脚本需要暂停（wait MILLISECONDS）</translation>
    </message>
    <message>
        <source>cannot read it: %1; the scenarios of the program are %2</source>
        <translation>无法读取：%1；程序自带的场景脚本为 %2</translation>
    </message>
    <message>
        <source>unknown fault: &quot;%1&quot;</source>
        <translation>未知故障：“%1”</translation>
    </message>
    <message>
        <source>%1 takes a number from %2 to %3</source>
        <translation>%1 的值为 %2 至 %3 的数字</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 不带值</translation>
    </message>
    <message>
        <source>unknown limit: &quot;%1&quot;</source>
        <translation>未知限制：“%1”</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 给出了两次</translation>
    </message>
    <message>
        <source>the identity answer has no status</source>
        <translation>身份应答没有状态</translation>
    </message>
    <message>
        <source>cannot listen for discovery requests on %1: %2</source>
        <translation>无法在 %1 上侦听发现请求：%2</translation>
    </message>
    <message>
        <source>cannot listen on %1: %2</source>
        <translation>无法在 %1 上侦听：%2</translation>
    </message>
    <message>
        <source>the scenario &quot;%1&quot; is not valid: %2</source>
        <translation>场景脚本“%1”无效：%2</translation>
    </message>
    <message>
        <source>cannot create the folder %1</source>
        <translation>无法创建文件夹 %1</translation>
    </message>
    <message>
        <source>%1 is damaged: %2</source>
        <translation>%1 已损坏：%2</translation>
    </message>
    <message>
        <source>the saved setup is damaged: %1</source>
        <translation>已保存的设置已损坏：%1</translation>
    </message>
    <message>
        <source>Listen on ADDRESS (127.0.0.1).</source>
        <translation>在 ADDRESS 上侦听（127.0.0.1）。</translation>
    </message>
    <message>
        <source>Listen on PORT (6630); 0: any free port.</source>
        <translation>在 PORT 上侦听（6630）；0：任意空闲端口。</translation>
    </message>
    <message>
        <source>Console port, for this machine only; 0: any free port.</source>
        <translation>控制台端口，仅限本机；0：任意空闲端口。</translation>
    </message>
    <message>
        <source>Answer discovery requests on this UDP port; 0: any free port. On a loopback address 6631 by default.</source>
        <translation>在此 UDP 端口应答发现请求；0：任意空闲端口。回环地址默认为 6631。</translation>
    </message>
    <message>
        <source>Device name.</source>
        <translation>设备名称。</translation>
    </message>
    <message>
        <source>Serial number, 16 hexadecimal digits.</source>
        <translation>序列号，16 位十六进制数字。</translation>
    </message>
    <message>
        <source>MAC address, 12 hexadecimal digits.</source>
        <translation>MAC 地址，12 位十六进制数字。</translation>
    </message>
    <message>
        <source>Model ID (0x7701).</source>
        <translation>型号 ID（0x7701）。</translation>
    </message>
    <message>
        <source>Longest body of a packet in either direction (65536).</source>
        <translation>双向数据包内容的最大长度（65536）。</translation>
    </message>
    <message>
        <source>Delay each answer by MS milliseconds (0).</source>
        <translation>每次应答延迟 MS 毫秒（0）。</translation>
    </message>
    <message>
        <source>Clock speed of the device (100); 0: moved by &quot;pass&quot;.</source>
        <translation>设备时钟速度（100）；0：由“pass”推进。</translation>
    </message>
    <message>
        <source>Keep files and the saved setup in the folder DIR.</source>
        <translation>将文件和已保存的设置存放在文件夹 DIR 中。</translation>
    </message>
    <message>
        <source>Inject a fault (see below); may be given several times.</source>
        <translation>注入故障（见下文）；可多次给出。</translation>
    </message>
    <message>
        <source>Seed for random faults (1).</source>
        <translation>随机故障的种子（1）。</translation>
    </message>
    <message>
        <source>Carry out a scenario (see below), or the one in the file SCENE.</source>
        <translation>执行场景脚本（见下文），或文件 SCENE 中的脚本。</translation>
    </message>
    <message>
        <source>Input connectors (8), 1 to 4096.</source>
        <translation>输入连接器（8），1 至 4096。</translation>
    </message>
    <message>
        <source>Output connectors (8), 1 to 4096.</source>
        <translation>输出连接器（8），1 至 4096。</translation>
    </message>
    <message>
        <source>Screens of all kinds (4), 0 to 255.</source>
        <translation>各类屏幕（4），0 至 255。</translation>
    </message>
    <message>
        <source>Layers in each of the two scenes of a screen (4), 0 to 256.</source>
        <translation>屏幕两个场景各自的图层数（4），0 至 256。</translation>
    </message>
    <message>
        <source>pulls the cable of an input</source>
        <translation>拔掉输入的线缆</translation>
    </message>
    <message>
        <source>plugs a card (1) or pulls it (0)</source>
        <translation>插入板卡 (1) 或拔出 (0)</translation>
    </message>
    <message>
        <source>0 or 1</source>
        <translation>0 或 1</translation>
    </message>
    <message>
        <source>sets the colour depth of an input&apos;s source</source>
        <translation>设置输入信号源的色深</translation>
    </message>
    <message>
        <source>0 to 65535</source>
        <translation>0 至 65535</translation>
    </message>
    <message>
        <source>sets (1) or removes (0) the genlock signal</source>
        <translation>接入 (1) 或移除 (0) 同步锁相信号</translation>
    </message>
    <message>
        <source>names a group, and adds it if it is new</source>
        <translation>命名组，若为新组则添加</translation>
    </message>
    <message>
        <source>advances the device&apos;s clock</source>
        <translation>推进设备时钟</translation>
    </message>
    <message>
        <source>0 or more</source>
        <translation>0 或更大</translation>
    </message>
    <message>
        <source>makes a power supply work (1) or fail (0)</source>
        <translation>使电源正常 (1) 或故障 (0)</translation>
    </message>
    <message>
        <source>switches a pair of interfaces to this one</source>
        <translation>将一对接口切换到此接口</translation>
    </message>
    <message>
        <source>makes the upgrade fail at this progress</source>
        <translation>使升级在此进度失败</translation>
    </message>
    <message>
        <source>0 to 100</source>
        <translation>0 至 100</translation>
    </message>
    <message>
        <source>switches the device off (0) or on (1)</source>
        <translation>关闭 (0) 或打开 (1) 设备</translation>
    </message>
    <message>
        <source>sets the timing of an input&apos;s source</source>
        <translation>设置输入信号源的时序</translation>
    </message>
    <message>
        <source>injects a fault from now on</source>
        <translation>从现在起注入故障</translation>
    </message>
    <message>
        <source>lists the rules with their remaining counts</source>
        <translation>列出规则及其剩余次数</translation>
    </message>
    <message>
        <source>0x1 to 0xFFFF, or the name of a command</source>
        <translation>0x1 至 0xFFFF，或命令名称</translation>
    </message>
    <message>
        <source>0 to 4294967295</source>
        <translation>0 至 4294967295</translation>
    </message>
    <message>
        <source>1 to 4294967295</source>
        <translation>1 至 4294967295</translation>
    </message>
    <message>
        <source>1 to 100</source>
        <translation>1 至 100</translation>
    </message>
    <message>
        <source>refuses the request with this status</source>
        <translation>以此状态拒绝请求</translation>
    </message>
    <message>
        <source>answers later</source>
        <translation>延后应答</translation>
    </message>
    <message>
        <source>never answers</source>
        <translation>从不应答</translation>
    </message>
    <message>
        <source>does not carry the request out and never answers</source>
        <translation>不执行请求且从不应答</translation>
    </message>
    <message>
        <source>sends half of the answer and never the rest</source>
        <translation>只发送一半应答</translation>
    </message>
    <message>
        <source>does not carry the request out and ends the connection</source>
        <translation>不执行请求并断开连接</translation>
    </message>
    <message>
        <source>ends the connection before the answer</source>
        <translation>在应答前断开连接</translation>
    </message>
    <message>
        <source>ends the connection after half of the answer</source>
        <translation>在发送一半应答后断开连接</translation>
    </message>
    <message>
        <source>ends the connection after the answer</source>
        <translation>在应答后断开连接</translation>
    </message>
    <message>
        <source>answers with another flag (position 0)</source>
        <translation>以其他标志应答（位置 0）</translation>
    </message>
    <message>
        <source>answers with another version (2)</source>
        <translation>以其他版本应答（2）</translation>
    </message>
    <message>
        <source>answers with a tag that is not in use (3)</source>
        <translation>以未使用的标签应答（3）</translation>
    </message>
    <message>
        <source>answers with a body length that is too large by this (4)</source>
        <translation>以偏大此值的内容长度应答（4）</translation>
    </message>
    <message>
        <source>answers with a checksum index that is not defined (9)</source>
        <translation>以未定义的校验索引应答（9）</translation>
    </message>
    <message>
        <source>answers with a kind that is not defined (10)</source>
        <translation>以未定义的种类应答（10）</translation>
    </message>
    <message>
        <source>answers with another checksum of the head (12)</source>
        <translation>以其他头部校验和应答（12）</translation>
    </message>
    <message>
        <source>answers with another checksum of the body (14)</source>
        <translation>以其他内容校验和应答（14）</translation>
    </message>
    <message>
        <source>answers with another stream (18)</source>
        <translation>以其他流应答（18）</translation>
    </message>
    <message>
        <source>answers with another type (20)</source>
        <translation>以其他类型应答（20）</translation>
    </message>
    <message>
        <source>answers with another function code (29)</source>
        <translation>以其他功能码应答（29）</translation>
    </message>
    <message>
        <source>answers with this number of packets (21)</source>
        <translation>以此数据包数应答（21）</translation>
    </message>
    <message>
        <source>sends the next packet first, then this one</source>
        <translation>先发送下一个数据包，再发送此包</translation>
    </message>
    <message>
        <source>answers twice</source>
        <translation>应答两次</translation>
    </message>
    <message>
        <source>answers an earlier request without an answer</source>
        <translation>应答较早的未应答请求</translation>
    </message>
    <message>
        <source>sends this part of the body, 0: half, in a valid frame</source>
        <translation>在有效帧中发送内容的这一部分，0：一半</translation>
    </message>
    <message>
        <source>replaces bytes of the body by #, in a valid frame</source>
        <translation>在有效帧中将内容的字节替换为 #</translation>
    </message>
    <message>
        <source>does not carry the request out and restarts</source>
        <translation>不执行请求并重启</translation>
    </message>
    <message>
        <source>sends reports before the answer, up to 100000</source>
        <translation>在应答前发送报告，最多 100000</translation>
    </message>
    <message>
        <source>it was not written by this version of tavorosim</source>
        <translation>不是由此版本的 tavorosim 写入</translation>
    </message>
    <message>
        <source>another device uses it</source>
        <translation>另一设备正在使用</translation>
    </message>
    <message>
        <source>cannot use %1: %2</source>
        <translation>无法使用 %1：%2</translation>
    </message>
    <message>
        <source>removes all rules and does what release does</source>
        <translation>移除所有规则，并执行 release 的操作</translation>
    </message>
    <message>
        <source>sends held answers and resumes reading</source>
        <translation>发送保留的应答并恢复读取</translation>
    </message>
    <message>
        <source>usage: fault add RULE, fault clear, fault list, fault release</source>
        <translation>用法：fault add RULE, fault clear, fault list, fault release</translation>
    </message>
    <message>
        <source>answers after &quot;fault release&quot;</source>
        <translation>在“fault release”之后应答</translation>
    </message>
    <message>
        <source>neither reads nor answers for this time, 0: until &quot;fault release&quot;</source>
        <translation>在此期间不读取也不应答，0：直至“fault release”</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::ControlHelper</name>
    <message>
        <source>hardware error:%1</source>
        <translation>硬件错误：%1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::BrokerConnection</name>
    <message>
        <source>not connected yet</source>
        <translation>尚未连接</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::DeviceCalls</name>
    <message>
        <source>the correlation data belongs to another call</source>
        <translation>关联数据属于另一调用</translation>
    </message>
    <message>
        <source>too many calls wait</source>
        <translation>等待的调用过多</translation>
    </message>
    <message>
        <source>the message has expired</source>
        <translation>消息已过期</translation>
    </message>
    <message>
        <source>the broker does not permit the gateway&apos;s claims</source>
        <translation>MQTT 代理不允许网关的声明</translation>
    </message>
    <message>
        <source>no gateway worked for the device in time</source>
        <translation>没有网关及时为该设备工作</translation>
    </message>
    <message>
        <source>the gateway that works for the device has not received the call</source>
        <translation>为该设备工作的网关未收到该调用</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::DevicePresence</name>
    <message>
        <source>the gateway was stopped</source>
        <translation>网关已停止</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::MosquittoClient</name>
    <message>
        <source>the broker does not answer</source>
        <translation>MQTT 代理不应答</translation>
    </message>
    <message>
        <source>the certificates cannot be used: %1</source>
        <translation>无法使用证书：%1</translation>
    </message>
    <message>
        <source>the gateway stops</source>
        <translation>网关正在停止</translation>
    </message>
</context>
</TS>
