<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Tavoro::BizModel::Device</name>
    <message>
        <source>Interface %1/%2/%3</source>
        <translation>接口 %1/%2/%3</translation>
    </message>
    <message>
        <source>Screen %1 of type %2</source>
        <translation>屏幕 %1（类型 %2）</translation>
    </message>
    <message>
        <source>Layer %1 of type %2 in scene %3 on screen %4 of type %5</source>
        <translation>图层 %1（类型 %2），场景 %3，屏幕 %4（类型 %5）</translation>
    </message>
    <message>
        <source>File %1 of type %2</source>
        <translation>文件 %1（类型 %2）</translation>
    </message>
    <message>
        <source>%1 occurs twice.</source>
        <translation>%1 出现了两次。</translation>
    </message>
    <message>
        <source>%1 has the output %2, which the device does not have.</source>
        <translation>%1 使用了设备没有的输出 %2。</translation>
    </message>
    <message>
        <source>%1: the device does not have the screen.</source>
        <translation>%1：设备没有该屏幕。</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>还有 %1 处。</translation>
    </message>
    <message>
        <source>The device has no slot %1</source>
        <translation>设备没有插槽 %1</translation>
    </message>
    <message>
        <source>Subcard %1</source>
        <translation>板卡 %1</translation>
    </message>
    <message>
        <source>Power supply %1</source>
        <translation>电源 %1</translation>
    </message>
    <message>
        <source>Device group %1</source>
        <translation>设备组 %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::BizModel::DeviceList</name>
    <message>
        <source>%1 of the device %2 %3 %4</source>
        <translation>设备 %2 %3 %4 的 %1</translation>
    </message>
    <message>
        <source>A store of devices is open already.</source>
        <translation>已打开一个设备库。</translation>
    </message>
    <message>
        <source>The file %1 is not a store of devices.</source>
        <translation>文件 %1 不是设备库。</translation>
    </message>
    <message>
        <source>The file %1 was written by a later version.</source>
        <translation>文件 %1 由更新的版本写入。</translation>
    </message>
    <message>
        <source>The file was written by an earlier version, which this one cannot read.</source>
        <translation>该文件由较早的版本写入，当前版本无法读取。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::ControlHelper</name>
    <message>
        <source> error json is : </source>
        <translation> 错误的 JSON： </translation>
    </message>
    <message>
        <source>Decode json failed: </source>
        <translation>JSON 解码失败： </translation>
    </message>
    <message>
        <source>Device is null.</source>
        <translation>设备为空。</translation>
    </message>
    <message>
        <source>device detail information</source>
        <translation>设备详情</translation>
    </message>
    <message>
        <source>device general information</source>
        <translation>设备基本信息</translation>
    </message>
    <message>
        <source>device card mode information</source>
        <translation>设备板卡模式</translation>
    </message>
    <message>
        <source>device power information</source>
        <translation>设备电源信息</translation>
    </message>
    <message>
        <source>device genlock config information</source>
        <translation>设备同步锁相配置</translation>
    </message>
    <message>
        <source>device genlock status information</source>
        <translation>设备同步锁相状态</translation>
    </message>
    <message>
        <source>device net config information</source>
        <translation>设备网络配置</translation>
    </message>
    <message>
        <source>device swap status information</source>
        <translation>设备交换状态</translation>
    </message>
    <message>
        <source>device test pattern information</source>
        <translation>设备测试图</translation>
    </message>
    <message>
        <source>device Dynamic Rang Conversion information</source>
        <translation>设备动态范围转换</translation>
    </message>
    <message>
        <source>device group information</source>
        <translation>设备组信息</translation>
    </message>
    <message>
        <source>input backup information</source>
        <translation>输入备份信息</translation>
    </message>
    <message>
        <source>device backup information</source>
        <translation>设备备份信息</translation>
    </message>
    <message>
        <source>Load to PGM</source>
        <translation>加载到 PGM</translation>
    </message>
    <message>
        <source>interface detail information</source>
        <translation>接口详情</translation>
    </message>
    <message>
        <source>interface general information</source>
        <translation>接口基本信息</translation>
    </message>
    <message>
        <source>interface test pattern information</source>
        <translation>接口测试图</translation>
    </message>
    <message>
        <source>interface preset timing information</source>
        <translation>接口预设时序</translation>
    </message>
    <message>
        <source>interface actual timing information</source>
        <translation>接口实际时序</translation>
    </message>
    <message>
        <source>interface image quality information</source>
        <translation>接口画质</translation>
    </message>
    <message>
        <source>interface crop information</source>
        <translation>接口裁剪</translation>
    </message>
    <message>
        <source>interface cutout general information</source>
        <translation>接口抠像设置</translation>
    </message>
    <message>
        <source>interface HDCP information</source>
        <translation>接口 HDCP</translation>
    </message>
    <message>
        <source>interface colorDepth information</source>
        <translation>接口色深</translation>
    </message>
    <message>
        <source>interface colorSpace information</source>
        <translation>接口色彩空间</translation>
    </message>
    <message>
        <source>interface colorRange information</source>
        <translation>接口色彩范围</translation>
    </message>
    <message>
        <source>interface formatMapping information</source>
        <translation>接口格式映射</translation>
    </message>
    <message>
        <source>interface HDR information</source>
        <translation>接口 HDR</translation>
    </message>
    <message>
        <source>screen detail information</source>
        <translation>屏幕详情</translation>
    </message>
    <message>
        <source>screen enable information</source>
        <translation>屏幕启用</translation>
    </message>
    <message>
        <source>screen general information</source>
        <translation>屏幕基本信息</translation>
    </message>
    <message>
        <source>screen background color information</source>
        <translation>屏幕背景颜色</translation>
    </message>
    <message>
        <source>screen layout information</source>
        <translation>屏幕布局</translation>
    </message>
    <message>
        <source>screen physical size information</source>
        <translation>屏幕物理尺寸</translation>
    </message>
    <message>
        <source>screen pgm edit information</source>
        <translation>屏幕 PGM 编辑</translation>
    </message>
    <message>
        <source>screen selected information</source>
        <translation>屏幕选择</translation>
    </message>
    <message>
        <source>screen image quality information</source>
        <translation>屏幕画质</translation>
    </message>
    <message>
        <source>screen freeze information</source>
        <translation>屏幕冻结</translation>
    </message>
    <message>
        <source>screen FTB information</source>
        <translation>屏幕黑场</translation>
    </message>
    <message>
        <source>screen test pattern information</source>
        <translation>屏幕测试图</translation>
    </message>
    <message>
        <source>screen switch effect information</source>
        <translation>屏幕转场特效</translation>
    </message>
    <message>
        <source>screen tbar information</source>
        <translation>屏幕 T 杆</translation>
    </message>
    <message>
        <source>screen take information</source>
        <translation>屏幕切换</translation>
    </message>
    <message>
        <source>screen delete information</source>
        <translation>屏幕删除</translation>
    </message>
    <message>
        <source>screen HDR information</source>
        <translation>屏幕 HDR</translation>
    </message>
    <message>
        <source>screen backup information</source>
        <translation>屏幕备份</translation>
    </message>
    <message>
        <source>layer detail information</source>
        <translation>图层详情</translation>
    </message>
    <message>
        <source>layer enable information</source>
        <translation>图层启用</translation>
    </message>
    <message>
        <source>layer z order information</source>
        <translation>图层叠放顺序</translation>
    </message>
    <message>
        <source>layer general information</source>
        <translation>图层基本信息</translation>
    </message>
    <message>
        <source>layer source information</source>
        <translation>图层信号源</translation>
    </message>
    <message>
        <source>layer window information</source>
        <translation>图层窗口</translation>
    </message>
    <message>
        <source>layer mask information</source>
        <translation>图层蒙版</translation>
    </message>
    <message>
        <source>layer color information</source>
        <translation>图层颜色</translation>
    </message>
    <message>
        <source>layer opacity information</source>
        <translation>图层不透明度</translation>
    </message>
    <message>
        <source>layer image quality information</source>
        <translation>图层画质</translation>
    </message>
    <message>
        <source>layer shadow information</source>
        <translation>图层阴影</translation>
    </message>
    <message>
        <source>layer border information</source>
        <translation>图层边框</translation>
    </message>
    <message>
        <source>layer selected information</source>
        <translation>图层选择</translation>
    </message>
    <message>
        <source>layer UMD information</source>
        <translation>图层 UMD</translation>
    </message>
    <message>
        <source>layer remove information</source>
        <translation>图层移除</translation>
    </message>
    <message>
        <source>layer Cut &amp; fill information</source>
        <translation>图层 Cut &amp; Fill</translation>
    </message>
    <message>
        <source>preset apply information</source>
        <translation>预设调用</translation>
    </message>
    <message>
        <source>ProjectFile apply information</source>
        <translation>工程文件应用</translation>
    </message>
    <message>
        <source>file detail information</source>
        <translation>文件详情</translation>
    </message>
    <message>
        <source>file delete information</source>
        <translation>文件删除</translation>
    </message>
    <message>
        <source>file general information</source>
        <translation>文件基本信息</translation>
    </message>
    <message>
        <source>file import information</source>
        <translation>文件导入</translation>
    </message>
    <message>
        <source>file export information</source>
        <translation>文件导出</translation>
    </message>
    <message>
        <source>file transfer progress information</source>
        <translation>文件传输进度</translation>
    </message>
    <message>
        <source>file create image file information</source>
        <translation>创建图片文件</translation>
    </message>
    <message>
        <source>file create preset file information</source>
        <translation>创建预设文件</translation>
    </message>
    <message>
        <source>file create project file information</source>
        <translation>创建工程文件</translation>
    </message>
    <message>
        <source>file create log file information</source>
        <translation>创建日志文件</translation>
    </message>
    <message>
        <source>shutdown or restart information</source>
        <translation>关机或重启</translation>
    </message>
    <message>
        <source>factory reset information</source>
        <translation>恢复出厂设置</translation>
    </message>
    <message>
        <source>save information</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>source loss statics information</source>
        <translation>信号源丢失统计</translation>
    </message>
    <message>
        <source>source loss statics result information</source>
        <translation>信号源丢失统计结果</translation>
    </message>
    <message>
        <source>cutout position information</source>
        <translation>抠像取色位置</translation>
    </message>
    <message>
        <source>cutout RGB information</source>
        <translation>抠像 RGB</translation>
    </message>
    <message>
        <source>upgrade detail information</source>
        <translation>升级详情</translation>
    </message>
    <message>
        <source>upgrade percent information</source>
        <translation>升级进度</translation>
    </message>
    <message>
        <source>device version information</source>
        <translation>设备版本</translation>
    </message>
    <message>
        <source>self check detail information</source>
        <translation>自检详情</translation>
    </message>
    <message>
        <source>set device time information</source>
        <translation>设置设备时间</translation>
    </message>
    <message>
        <source>device file load progress information</source>
        <translation>设备文件加载进度</translation>
    </message>
    <message>
        <source>The current device is already under control</source>
        <translation>当前设备已被控制</translation>
    </message>
    <message>
        <source>software error: Channel is not initialized</source>
        <translation>软件错误：通道未初始化</translation>
    </message>
    <message>
        <source>software error: Channel is connecting</source>
        <translation>软件错误：通道正在连接</translation>
    </message>
    <message>
        <source>software error: Channel disconnected</source>
        <translation>软件错误：通道已断开</translation>
    </message>
    <message>
        <source>software error: Request timed out</source>
        <translation>软件错误：请求超时</translation>
    </message>
    <message>
        <source>software error: Asynchronous request is being executed</source>
        <translation>软件错误：正在执行异步请求</translation>
    </message>
    <message>
        <source>software error: Sync request is being executed</source>
        <translation>软件错误：正在执行同步请求</translation>
    </message>
    <message>
        <source>software error: Invalid request command</source>
        <translation>软件错误：请求命令无效</translation>
    </message>
    <message>
        <source>software error: Sending thread is not initialized or not started</source>
        <translation>软件错误：发送线程未初始化或未启动</translation>
    </message>
    <message>
        <source>protocol error: Invalid register address</source>
        <translation>协议错误：寄存器地址无效</translation>
    </message>
    <message>
        <source>protocol error: Return data is too short</source>
        <translation>协议错误：返回数据过短</translation>
    </message>
    <message>
        <source>protocol error: Invalid protocol header flag</source>
        <translation>协议错误：协议头标志无效</translation>
    </message>
    <message>
        <source>protocol error: Invalid checksum index</source>
        <translation>协议错误：校验索引无效</translation>
    </message>
    <message>
        <source>protocol error: Invalid checksum</source>
        <translation>协议错误：校验和无效</translation>
    </message>
    <message>
        <source>protocol error: Invalid type</source>
        <translation>协议错误：类型无效</translation>
    </message>
    <message>
        <source>protocol error: Invalid extended data length</source>
        <translation>协议错误：扩展数据长度无效</translation>
    </message>
    <message>
        <source>protocol error: Device response timeout</source>
        <translation>协议错误：设备响应超时</translation>
    </message>
    <message>
        <source>protocol error: Device response decoding timed out</source>
        <translation>协议错误：设备响应解码超时</translation>
    </message>
    <message>
        <source>hardware error:%1</source>
        <translation>硬件错误：%1</translation>
    </message>
    <message>
        <source>Get %1 failed: %2 .</source>
        <translation>读取“%1”失败：%2。</translation>
    </message>
    <message>
        <source>Get %1 successfully.</source>
        <translation>读取“%1”成功。</translation>
    </message>
    <message>
        <source>Set %1 failed: %2 .</source>
        <translation>设置“%1”失败：%2。</translation>
    </message>
    <message>
        <source>Set %1 successfully.</source>
        <translation>设置“%1”成功。</translation>
    </message>
    <message>
        <source>Invalid request command</source>
        <translation>请求命令无效</translation>
    </message>
    <message>
        <source>invalid device model data</source>
        <translation>设备模型数据无效</translation>
    </message>
    <message>
        <source>The device is offline</source>
        <translation>设备离线</translation>
    </message>
    <message>
        <source>invalid response command model data</source>
        <translation>响应命令模型数据无效</translation>
    </message>
    <message>
        <source>Device data has been updated, please synchronize now.</source>
        <translation>设备数据已更新，请立即同步。</translation>
    </message>
    <message>
        <source>Operation has been cancelled.</source>
        <translation>操作已取消。</translation>
    </message>
    <message>
        <source>The device is controlled by others.</source>
        <translation>设备正被他人控制。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::DeviceList</name>
    <message>
        <source>Device model is nullptr</source>
        <translation>设备模型为空</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::SaveFilePrivate</name>
    <message>
        <source>File open failed. file path: %1</source>
        <translation>文件打开失败。文件路径：%1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::SyncDeviceTask</name>
    <message>
        <source>Device not ready.</source>
        <translation>设备未就绪。</translation>
    </message>
    <message>
        <source>Device offline</source>
        <translation>设备离线</translation>
    </message>
</context>
<context>
    <name>Tavoro::DeviceFiles</name>
    <message>
        <source>the content could not be read (%1)</source>
        <translation>无法读取内容（%1）</translation>
    </message>
    <message>
        <source>the content could not be written (%1)</source>
        <translation>无法写入内容（%1）</translation>
    </message>
    <message>
        <source>the length of the content is not known</source>
        <translation>内容长度未知</translation>
    </message>
    <message>
        <source>type and ID of a file are 0 to %1</source>
        <translation>文件的类型和 ID 为 0 至 %1</translation>
    </message>
    <message>
        <source>a file has at most %1 bytes</source>
        <translation>文件最多 %1 字节</translation>
    </message>
</context>
<context>
    <name>Tavoro::DeviceSession</name>
    <message>
        <source>the clock could not be set (%1)</source>
        <translation>无法设置时钟（%1）</translation>
    </message>
    <message>
        <source>the details could not be read (%1)</source>
        <translation>无法读取详情（%1）</translation>
    </message>
    <message>
        <source>the device is not ready yet</source>
        <translation>设备尚未就绪</translation>
    </message>
    <message>
        <source>the interfaces could not be read (%1)</source>
        <translation>无法读取接口（%1）</translation>
    </message>
    <message>
        <source>the screens could not be read (%1)</source>
        <translation>无法读取屏幕（%1）</translation>
    </message>
    <message>
        <source>the layers could not be read (%1)</source>
        <translation>无法读取图层（%1）</translation>
    </message>
    <message>
        <source>the list of files could not be read (%1)</source>
        <translation>无法读取文件列表（%1）</translation>
    </message>
    <message>
        <source>the content of a file could not be read (%1)</source>
        <translation>无法读取文件内容（%1）</translation>
    </message>
    <message>
        <source>the session is closed</source>
        <translation>会话已关闭</translation>
    </message>
    <message>
        <source>there is no connection yet</source>
        <translation>尚未连接</translation>
    </message>
    <message>
        <source>the device is open already, at %1</source>
        <translation>设备已打开，地址为 %1</translation>
    </message>
    <message>
        <source>its channel was stopped</source>
        <translation>其通道已停止</translation>
    </message>
    <message>
        <source>%1 is disconnected.</source>
        <translation>%1 已断开。</translation>
    </message>
    <message>
        <source>%1 is disconnected: %2.</source>
        <translation>%1 已断开：%2。</translation>
    </message>
    <message>
        <source>Connecting to %1.</source>
        <translation>正在连接 %1。</translation>
    </message>
    <message>
        <source>Cannot connect to %1: %2.</source>
        <translation>无法连接 %1：%2。</translation>
    </message>
    <message>
        <source>Reading %1.</source>
        <translation>正在读取 %1。</translation>
    </message>
    <message>
        <source>Cannot read %1: %2.</source>
        <translation>无法读取 %1：%2。</translation>
    </message>
    <message>
        <source>%1 is ready.</source>
        <translation>%1 已就绪。</translation>
    </message>
    <message>
        <source>%1 is ready, but %2.</source>
        <translation>%1 已就绪，但%2。</translation>
    </message>
    <message>
        <source>The connection to %1 is lost.</source>
        <translation>与 %1 的连接已丢失。</translation>
    </message>
    <message>
        <source>The connection to %1 is lost: %2.</source>
        <translation>与 %1 的连接已丢失：%2。</translation>
    </message>
    <message>
        <source>it failed at %1 percent</source>
        <translation>在 %1% 处失败</translation>
    </message>
    <message>
        <source>the device does not report its progress any more</source>
        <translation>设备不再报告进度</translation>
    </message>
    <message>
        <source>the device continues, but is not followed any more</source>
        <translation>设备仍在继续，但不再跟踪</translation>
    </message>
</context>
<context>
    <name>Tavoro::Models::SessionEditHandler</name>
    <message>
        <source>There is no command that writes this value.</source>
        <translation>没有写入该值的命令。</translation>
    </message>
    <message>
        <source>The device is not open.</source>
        <translation>设备未打开。</translation>
    </message>
    <message>
        <source>The value was written, but could not be read again.</source>
        <translation>值已写入，但无法重新读取。</translation>
    </message>
</context>
<context>
    <name>Tavoro::Operations</name>
    <message>
        <source>a text is missing</source>
        <translation>缺少文本</translation>
    </message>
    <message>
        <source>argument %1: unexpected &quot;%2&quot;</source>
        <translation>参数 %1：意外的“%2”</translation>
    </message>
    <message>
        <source>a number is missing</source>
        <translation>缺少数字</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>“%1”不是数字</translation>
    </message>
    <message>
        <source>%1 is not between %2 and %3</source>
        <translation>%1 不在 %2 与 %3 之间</translation>
    </message>
    <message>
        <source>argument %1: %2</source>
        <translation>参数 %1：%2</translation>
    </message>
    <message>
        <source>a record is missing</source>
        <translation>缺少记录</translation>
    </message>
    <message>
        <source>; did you mean &quot;%1&quot;</source>
        <translation>；是否指“%1”</translation>
    </message>
    <message>
        <source>%1 failed.</source>
        <translation>%1 失败。</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;</source>
        <translation>未知操作“%1”</translation>
    </message>
    <message>
        <source>line %1, column %2: %3</source>
        <translation>第 %1 行，第 %2 列：%3</translation>
    </message>
    <message>
        <source>unknown key &quot;%1&quot;%2; the keys here are: %3</source>
        <translation>未知键“%1”%2；此处的键为：%3</translation>
    </message>
    <message>
        <source>%1 would be sent as %2</source>
        <translation>%1 将作为 %2 发送</translation>
    </message>
    <message>
        <source>; the range is %1 to %2</source>
        <translation>；范围为 %1 至 %2</translation>
    </message>
    <message>
        <source>expected a list [...], found an object</source>
        <translation>应为列表 [...]，实际为对象</translation>
    </message>
    <message>
        <source>expected an object {...}, found a list</source>
        <translation>应为对象 {...}，实际为列表</translation>
    </message>
    <message>
        <source>missing keys: %1</source>
        <translation>缺少键：%1</translation>
    </message>
    <message>
        <source>Reads the whole state of the device.</source>
        <translation>读取设备的完整状态。</translation>
    </message>
    <message>
        <source>Reads the whole state of the device into the model.</source>
        <translation>将设备的完整状态读入模型。</translation>
    </message>
    <message>
        <source>Reads the whole state of the device as the JSON text that the device sent.</source>
        <translation>以设备发送的 JSON 文本读取设备的完整状态。</translation>
    </message>
    <message>
        <source>Reads the whole state of the device and replaces the cards in the model that the argument names.</source>
        <translation>读取设备的完整状态，并替换模型中参数指定的板卡。</translation>
    </message>
    <message>
        <source>Reads the groups that the device belongs to.</source>
        <translation>读取设备所属的组。</translation>
    </message>
    <message>
        <source>Reads the output mapping.</source>
        <translation>读取输出映射。</translation>
    </message>
    <message>
        <source>Renames the device.</source>
        <translation>重命名设备。</translation>
    </message>
    <message>
        <source>Sets the working modes of cards and connectors.</source>
        <translation>设置板卡和连接器的工作模式。</translation>
    </message>
    <message>
        <source>Selects the signal that the device locks its outputs to.</source>
        <translation>选择设备输出所锁定的信号。</translation>
    </message>
    <message>
        <source>Sets up the network ports.</source>
        <translation>设置网络端口。</translation>
    </message>
    <message>
        <source>Selects whether a take swaps preview and programme.</source>
        <translation>选择切换时是否互换预监与节目。</translation>
    </message>
    <message>
        <source>Sets the output mapping and its test pattern.</source>
        <translation>设置输出映射及其测试图。</translation>
    </message>
    <message>
        <source>Sets the conversion between dynamic ranges.</source>
        <translation>设置动态范围之间的转换。</translation>
    </message>
    <message>
        <source>Sets the groups that the device belongs to.</source>
        <translation>设置设备所属的组。</translation>
    </message>
    <message>
        <source>Sets the backup relations between interfaces.</source>
        <translation>设置接口之间的备份关系。</translation>
    </message>
    <message>
        <source>Switches the device&apos;s ZeLK feature on or off.</source>
        <translation>打开或关闭设备的 ZeLK 功能。</translation>
    </message>
    <message>
        <source>Selects where an applied preset goes: preview or programme.</source>
        <translation>选择调用预设的去向：预监或节目。</translation>
    </message>
    <message>
        <source>Reads interfaces.</source>
        <translation>读取接口。</translation>
    </message>
    <message>
        <source>Sets the names of interfaces.</source>
        <translation>设置接口名称。</translation>
    </message>
    <message>
        <source>Sends the same command as writeInterfaceGeneral().</source>
        <translation>发送与 writeInterfaceGeneral() 相同的命令。</translation>
    </message>
    <message>
        <source>Shows or hides a test pattern.</source>
        <translation>显示或隐藏测试图。</translation>
    </message>
    <message>
        <source>Requests a video timing.</source>
        <translation>请求视频时序。</translation>
    </message>
    <message>
        <source>Sends nothing and fails: the device measures timings.</source>
        <translation>不发送任何内容并失败：时序由设备测量。</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma.</source>
        <translation>设置对比度、亮度、色调、饱和度和伽马。</translation>
    </message>
    <message>
        <source>Crops inputs, in units of 1/100000 of their size.</source>
        <translation>裁剪输入，单位为其尺寸的 1/100000。</translation>
    </message>
    <message>
        <source>Cuts a colour or a brightness out of inputs.</source>
        <translation>从输入中抠除某种颜色或亮度。</translation>
    </message>
    <message>
        <source>Switches copy protection on or off.</source>
        <translation>打开或关闭版权保护。</translation>
    </message>
    <message>
        <source>Requests a colour depth.</source>
        <translation>请求色深。</translation>
    </message>
    <message>
        <source>Requests a colour space.</source>
        <translation>请求色彩空间。</translation>
    </message>
    <message>
        <source>Requests a colour range.</source>
        <translation>请求色彩范围。</translation>
    </message>
    <message>
        <source>Selects the format mapping.</source>
        <translation>选择格式映射。</translation>
    </message>
    <message>
        <source>Sets gamut and dynamic range.</source>
        <translation>设置色域和动态范围。</translation>
    </message>
    <message>
        <source>Reads screens.</source>
        <translation>读取屏幕。</translation>
    </message>
    <message>
        <source>Creates screens with their outputs and their position.</source>
        <translation>创建屏幕及其输出和位置。</translation>
    </message>
    <message>
        <source>Renames screens.</source>
        <translation>重命名屏幕。</translation>
    </message>
    <message>
        <source>Sets the colour of the area that no layer covers.</source>
        <translation>设置未被图层覆盖区域的颜色。</translation>
    </message>
    <message>
        <source>Moves screens on the canvas, in pixels.</source>
        <translation>在画布上移动屏幕，单位为像素。</translation>
    </message>
    <message>
        <source>Sets the physical size of screens.</source>
        <translation>设置屏幕的物理尺寸。</translation>
    </message>
    <message>
        <source>Selects whether edits go to the preview or to the programme.</source>
        <translation>选择编辑作用于预监还是节目。</translation>
    </message>
    <message>
        <source>Selects screens on the device&apos;s own panel.</source>
        <translation>在设备自身面板上选择屏幕。</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma of screens.</source>
        <translation>设置屏幕的对比度、亮度、色调、饱和度和伽马。</translation>
    </message>
    <message>
        <source>Freezes or releases the picture of screens.</source>
        <translation>冻结或解冻屏幕画面。</translation>
    </message>
    <message>
        <source>Fades screens to black, or back to the picture.</source>
        <translation>将屏幕淡入黑场，或恢复画面。</translation>
    </message>
    <message>
        <source>Sets the transition of the next take.</source>
        <translation>设置下一次切换的转场。</translation>
    </message>
    <message>
        <source>Moves the T-bar, in percent.</source>
        <translation>移动 T 杆，单位为百分比。</translation>
    </message>
    <message>
        <source>Takes: switches the preview to programme with the given transition.</source>
        <translation>切换：以给定转场将预监切换到节目。</translation>
    </message>
    <message>
        <source>Deletes screens with their layers.</source>
        <translation>删除屏幕及其图层。</translation>
    </message>
    <message>
        <source>Sets the dynamic range of the outputs of screens.</source>
        <translation>设置屏幕输出的动态范围。</translation>
    </message>
    <message>
        <source>Switches the ZeLK feature of screens on or off.</source>
        <translation>打开或关闭屏幕的 ZeLK 功能。</translation>
    </message>
    <message>
        <source>Reads layers.</source>
        <translation>读取图层。</translation>
    </message>
    <message>
        <source>Creates layers with all their properties, or replaces them.</source>
        <translation>创建图层及其全部属性，或替换它们。</translation>
    </message>
    <message>
        <source>Creates layers, or switches them on, with stacking order, source, window and border.</source>
        <translation>创建或启用图层，包括叠放顺序、信号源、窗口和边框。</translation>
    </message>
    <message>
        <source>Sets the stacking order of layers.</source>
        <translation>设置图层的叠放顺序。</translation>
    </message>
    <message>
        <source>Sets name, freeze, monochrome, inversion and flip of layers.</source>
        <translation>设置图层的名称、冻结、黑白、反色和翻转。</translation>
    </message>
    <message>
        <source>Selects what layers show, and which part of it.</source>
        <translation>选择图层显示的内容及其部分。</translation>
    </message>
    <message>
        <source>Moves and resizes layers on their screen, in pixels.</source>
        <translation>在屏幕上移动图层并调整大小，单位为像素。</translation>
    </message>
    <message>
        <source>Masks the edges of layers.</source>
        <translation>遮罩图层的边缘。</translation>
    </message>
    <message>
        <source>Shows a test colour instead of the source of layers, or the source again.</source>
        <translation>用测试色代替图层的信号源，或恢复信号源。</translation>
    </message>
    <message>
        <source>Sets the opacity of layers, from 0 (transparent) to 100 (opaque).</source>
        <translation>设置图层的不透明度，从 0（透明）到 100（不透明）。</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma of layers.</source>
        <translation>设置图层的对比度、亮度、色调、饱和度和伽马。</translation>
    </message>
    <message>
        <source>Sets the shadow of layers.</source>
        <translation>设置图层的阴影。</translation>
    </message>
    <message>
        <source>Sets the border of layers.</source>
        <translation>设置图层的边框。</translation>
    </message>
    <message>
        <source>Selects layers on the device&apos;s own panel.</source>
        <translation>在设备自身面板上选择图层。</translation>
    </message>
    <message>
        <source>Sets the under-monitor displays of layers.</source>
        <translation>设置图层的源名显示 (UMD)。</translation>
    </message>
    <message>
        <source>Removes the listed layers.</source>
        <translation>移除列出的图层。</translation>
    </message>
    <message>
        <source>Removes all layers of one screen.</source>
        <translation>移除一个屏幕的所有图层。</translation>
    </message>
    <message>
        <source>Binds layers to partners as cut and fill, or releases them.</source>
        <translation>将图层与搭档绑定为 Cut 和 Fill，或解除绑定。</translation>
    </message>
    <message>
        <source>Applies presets.</source>
        <translation>调用预设。</translation>
    </message>
    <message>
        <source>Lists files.</source>
        <translation>列出文件。</translation>
    </message>
    <message>
        <source>Deletes files.</source>
        <translation>删除文件。</translation>
    </message>
    <message>
        <source>Renames and moves files.</source>
        <translation>重命名和移动文件。</translation>
    </message>
    <message>
        <source>Announces files whose content follows.</source>
        <translation>通告随后发送内容的文件。</translation>
    </message>
    <message>
        <source>Makes the device capture images.</source>
        <translation>让设备采集图片。</translation>
    </message>
    <message>
        <source>Makes the device store its state as presets.</source>
        <translation>让设备将其状态保存为预设。</translation>
    </message>
    <message>
        <source>Makes the device store projects.</source>
        <translation>让设备保存工程。</translation>
    </message>
    <message>
        <source>Makes the device collect logs.</source>
        <translation>让设备收集日志。</translation>
    </message>
    <message>
        <source>Makes the device create EDID files from interfaces.</source>
        <translation>让设备从接口创建 EDID 文件。</translation>
    </message>
    <message>
        <source>Applies projects.</source>
        <translation>应用工程。</translation>
    </message>
    <message>
        <source>Restarts the device or shuts it down.</source>
        <translation>重启或关闭设备。</translation>
    </message>
    <message>
        <source>Resets the device to factory settings.</source>
        <translation>将设备恢复出厂设置。</translation>
    </message>
    <message>
        <source>Makes the device save its state.</source>
        <translation>让设备保存其状态。</translation>
    </message>
    <message>
        <source>Starts, stops or clears the count of lost sources.</source>
        <translation>开始、停止或清除信号源丢失计数。</translation>
    </message>
    <message>
        <source>Makes the device pick the colour at a position.</source>
        <translation>让设备拾取某位置的颜色。</translation>
    </message>
    <message>
        <source>Starts a firmware upgrade from a package that the device already holds.</source>
        <translation>使用设备上已有的升级包开始固件升级。</translation>
    </message>
    <message>
        <source>Sets the clock of the device, in local time.</source>
        <translation>设置设备时钟（本地时间）。</translation>
    </message>
    <message>
        <source>Reads how often sources were lost.</source>
        <translation>读取信号源丢失次数。</translation>
    </message>
    <message>
        <source>Reads the progress of a firmware upgrade, in percent.</source>
        <translation>读取固件升级进度，单位为百分比。</translation>
    </message>
    <message>
        <source>Reads the versions of the device and its units.</source>
        <translation>读取设备及其单元的版本。</translation>
    </message>
    <message>
        <source>Reads the result of the device&apos;s self check.</source>
        <translation>读取设备自检结果。</translation>
    </message>
    <message>
        <source>Reads the progress with which the device loads its stored files.</source>
        <translation>读取设备加载已存文件的进度。</translation>
    </message>
    <message>
        <source>%1 is out of range</source>
        <translation>%1 超出范围</translation>
    </message>
</context>
<context>
    <name>Tavoro::Outcome</name>
    <message>
        <source>the device does not know this command</source>
        <translation>设备不认识该命令</translation>
    </message>
    <message>
        <source>the device does not accept this data</source>
        <translation>设备不接受该数据</translation>
    </message>
    <message>
        <source>the device does not have this object</source>
        <translation>设备没有该对象</translation>
    </message>
    <message>
        <source>a value is out of range</source>
        <translation>有值超出范围</translation>
    </message>
    <message>
        <source>the data is too long for the device</source>
        <translation>数据对设备而言过长</translation>
    </message>
    <message>
        <source>the device is busy, or the object is in use</source>
        <translation>设备忙，或对象正在使用</translation>
    </message>
    <message>
        <source>the content differs from its announcement</source>
        <translation>内容与其通告不符</translation>
    </message>
    <message>
        <source>the storage of the device is full or has failed</source>
        <translation>设备存储已满或故障</translation>
    </message>
    <message>
        <source>another client controls the device</source>
        <translation>另一客户端正在控制设备</translation>
    </message>
    <message>
        <source>another client has changed the device, read it again first</source>
        <translation>另一客户端更改了设备，请先重新读取</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>连接已丢失</translation>
    </message>
    <message>
        <source>the device did not answer in time</source>
        <translation>设备未及时应答</translation>
    </message>
    <message>
        <source>the connection was lost within the answer</source>
        <translation>连接在应答过程中丢失</translation>
    </message>
    <message>
        <source>the device stopped answering</source>
        <translation>设备停止应答</translation>
    </message>
    <message>
        <source>the answer was not complete in time</source>
        <translation>应答未及时完成</translation>
    </message>
    <message>
        <source>there is no connection</source>
        <translation>没有连接</translation>
    </message>
    <message>
        <source>the connection was lost before</source>
        <translation>连接此前已丢失</translation>
    </message>
    <message>
        <source>too many calls are waiting</source>
        <translation>等待的调用过多</translation>
    </message>
    <message>
        <source>a newer value has replaced it</source>
        <translation>已被更新的值取代</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>the answer of the device cannot be read</source>
        <translation>无法读取设备的应答</translation>
    </message>
    <message>
        <source>the connection was lost before the last packet was sent</source>
        <translation>连接在发送最后一个数据包前丢失</translation>
    </message>
    <message>
        <source>the device is controlled by %1</source>
        <translation>设备由 %1 控制</translation>
    </message>
    <message>
        <source>the request for control</source>
        <translation>控制权请求</translation>
    </message>
    <message>
        <source>the question who holds control</source>
        <translation>控制权归属查询</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;</source>
        <translation>未知操作“%1”</translation>
    </message>
    <message>
        <source>%1: %2 was carried out.</source>
        <translation>%1：%2 已执行。</translation>
    </message>
    <message>
        <source>%1: %2 was refused: %3.</source>
        <translation>%1：%2 被拒绝：%3。</translation>
    </message>
    <message>
        <source>%1: %2 was not sent: %3.</source>
        <translation>%1：%2 未发送：%3。</translation>
    </message>
    <message>
        <source>%1: %2 may or may not have been carried out: %3.</source>
        <translation>%1：%2 是否已执行未知：%3。</translation>
    </message>
    <message>
        <source>%1: %2 was cancelled.</source>
        <translation>%1：%2 已取消。</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>请求</translation>
    </message>
    <message>
        <source>%1 holds the lease</source>
        <translation>%1 持有租约</translation>
    </message>
    <message>
        <source>the device does not support leases</source>
        <translation>设备不支持租约</translation>
    </message>
    <message>
        <source>the release of the lease</source>
        <translation>租约释放</translation>
    </message>
    <message>
        <source>the request for the lease</source>
        <translation>租约请求</translation>
    </message>
</context>
<context>
    <name>Tavoro::ProtoModel</name>
    <message>
        <source>the serial number is not 16 hexadecimal digits</source>
        <translation>序列号不是 16 位十六进制数字</translation>
    </message>
    <message>
        <source>the MAC address is not 12 hexadecimal digits</source>
        <translation>MAC 地址不是 12 位十六进制数字</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::DeviceManager</name>
    <message>
        <source>The device at %1 is not connected.</source>
        <translation>%1 处的设备未连接。</translation>
    </message>
    <message>
        <source>The device at %1 is controlled by another client.</source>
        <translation>%1 处的设备由另一客户端控制。</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ChannelLink</name>
    <message>
        <source>no connection in time</source>
        <translation>未能及时连接</translation>
    </message>
    <message>
        <source>there are too many connections</source>
        <translation>连接过多</translation>
    </message>
    <message>
        <source>it stopped answering</source>
        <translation>它停止应答</translation>
    </message>
    <message>
        <source>it sent an invalid frame (%1)</source>
        <translation>它发送了无效帧（%1）</translation>
    </message>
    <message>
        <source>it did not identify itself in time</source>
        <translation>它未及时表明身份</translation>
    </message>
    <message>
        <source>its identity cannot be read: %1</source>
        <translation>无法读取其身份：%1</translation>
    </message>
    <message>
        <source>it speaks protocol version %1, and only version %2 is supported</source>
        <translation>它使用协议版本 %1，仅支持版本 %2</translation>
    </message>
    <message>
        <source>it takes packets of 0 bytes</source>
        <translation>它接受的数据包为 0 字节</translation>
    </message>
    <message>
        <source>another device is there</source>
        <translation>该处是另一台设备</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ChannelReadiness</name>
    <message>
        <source>no connection yet</source>
        <translation>尚未连接</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation>无法访问 %1 处的设备：%2。</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::DeviceControl</name>
    <message>
        <source>The device at %1 is controlled by %2.</source>
        <translation>%1 处的设备由 %2 控制。</translation>
    </message>
    <message>
        <source>Could not give up control of the device at %1: %2 (%3).</source>
        <translation>无法放弃 %1 处设备的控制权：%2（%3）。</translation>
    </message>
    <message>
        <source>Could not take control of the device at %1: %2 (%3).</source>
        <translation>无法获取 %1 处设备的控制权：%2（%3）。</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>未及时应答</translation>
    </message>
    <message>
        <source>called on the channels&apos; own thread</source>
        <translation>在通道自身的线程上调用</translation>
    </message>
    <message>
        <source>too many requests are in flight</source>
        <translation>未完成的请求过多</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>连接已丢失</translation>
    </message>
    <message>
        <source>the device refuses</source>
        <translation>设备拒绝</translation>
    </message>
    <message>
        <source>its answer is not valid</source>
        <translation>其应答无效</translation>
    </message>
    <message>
        <source>another client</source>
        <translation>另一客户端</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::DiscoveryQuery</name>
    <message>
        <source>Cannot search for devices: %1.</source>
        <translation>无法搜索设备：%1。</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ResponseMonitor</name>
    <message>
        <source>it left too many requests unanswered</source>
        <translation>它有过多请求未应答</translation>
    </message>
    <message>
        <source>it stopped in the middle of a frame</source>
        <translation>它在帧中途停止</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::StreamChannel</name>
    <message>
        <source>it has no address</source>
        <translation>它没有地址</translation>
    </message>
    <message>
        <source>the channel is stopped</source>
        <translation>通道已停止</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::TcpStream</name>
    <message>
        <source>The remote host closed the connection</source>
        <translation>远程主机关闭了连接</translation>
    </message>
</context>
</TS>
