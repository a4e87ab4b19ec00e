<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>coagulation::ArrowCreator</name>
    <message>
        <source>指针</source>
        <translation>Pointer</translation>
    </message>
</context>
<context>
    <name>coagulation::CommandNamer</name>
    <message>
        <source>新建 %1</source>
        <translation>New %1</translation>
    </message>
    <message numerus="yes">
        <source>移动 %n 项</source>
        <translation>
            <numerusform>Move %n item</numerusform>
            <numerusform>Move %n items</numerusform>
        </translation>
    </message>
    <message>
        <source>调整大小</source>
        <translation>Resize</translation>
    </message>
    <message>
        <source>编辑文字</source>
        <translation>Edit text</translation>
    </message>
    <message>
        <source>删除</source>
        <translation>Delete</translation>
    </message>
</context>
<context>
    <name>coagulation::DesignerDialogs</name>
    <message>
        <source>报表模板 (*.%1);;所有文件 (*)</source>
        <translation>Report templates (*.%1);;All files (*)</translation>
    </message>
    <message>
        <source>新建模板</source>
        <translation>New Template</translation>
    </message>
    <message>
        <source>报表类型:</source>
        <translation>Report type:</translation>
    </message>
    <message>
        <source>打开模板</source>
        <translation>Open Template</translation>
    </message>
    <message>
        <source>保存模板</source>
        <translation>Save Template</translation>
    </message>
    <message>
        <source>报表设计器</source>
        <translation>Report Designer</translation>
    </message>
    <message>
        <source>模板“%1”已被修改。
是否保存修改？</source>
        <translation>The template “%1” has been modified.
Do you want to save your changes?</translation>
    </message>
    <message>
        <source>选择工作区</source>
        <translation>Choose Workspace</translation>
    </message>
    <message>
        <source>模板“%1”打开时已损坏，当前内容可能不完整。
仍要覆盖原文件吗？（可用“另存为”保存到新文件。）</source>
        <translation>The template &quot;%1&quot; was damaged when it was opened; its content may be incomplete.
Save over the original file anyway? (Save As keeps it.)</translation>
    </message>
</context>
<context>
    <name>coagulation::DesignerMain</name>
    <message>
        <source>报表模板设计器</source>
        <translation>Report template designer</translation>
    </message>
    <message>
        <source>要打开的模板 (.rpt)</source>
        <translation>A template (.rpt) to open</translation>
    </message>
    <message>
        <source>工作区文件夹 (profile.ini 及其数据库)：预览用其数据，工具用其列名；默认为 $COAGULATION_WORKSPACE，否则为 out/demo</source>
        <translation>Workspace folder (profile.ini and its databases) whose data fills previews and whose column names the tools offer; default $COAGULATION_WORKSPACE, else out/demo</translation>
    </message>
    <message>
        <source>选中此序号的项目 (最上层为 0)</source>
        <translation>Select the item with this index (topmost first, from 0)</translation>
    </message>
    <message>
        <source>保存窗口截图后退出</source>
        <translation>Save a picture of the window and quit</translation>
    </message>
    <message>
        <source>%1 中没有工作区：数据字段和预览需要工作区 (make demo 会创建一个)</source>
        <translation>No workspace at %1: data fields and previews need one (make demo creates it)</translation>
    </message>
</context>
<context>
    <name>coagulation::DesignerWindow</name>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>新建(&amp;N)...</source>
        <translation>&amp;New...</translation>
    </message>
    <message>
        <source>打开(&amp;O)...</source>
        <translation>&amp;Open...</translation>
    </message>
    <message>
        <source>保存(&amp;S)</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>另存为(&amp;A)...</source>
        <translation>Save &amp;As...</translation>
    </message>
    <message>
        <source>页面设置(&amp;U)...</source>
        <translation>Page Set&amp;up...</translation>
    </message>
    <message>
        <source>选择工作区(&amp;W)...</source>
        <translation>Choose &amp;Workspace...</translation>
    </message>
    <message>
        <source>打印预览(&amp;V)...</source>
        <translation>Print Pre&amp;view...</translation>
    </message>
    <message>
        <source>退出(&amp;X)</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>撤销(&amp;U)</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>重做(&amp;R)</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>剪切(&amp;T)</source>
        <translation>Cu&amp;t</translation>
    </message>
    <message>
        <source>复制(&amp;C)</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>粘贴(&amp;P)</source>
        <translation>&amp;Paste</translation>
    </message>
    <message>
        <source>删除(&amp;D)</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>全选(&amp;L)</source>
        <translation>Select A&amp;ll</translation>
    </message>
    <message>
        <source>放大(&amp;I)</source>
        <translation>Zoom &amp;In</translation>
    </message>
    <message>
        <source>缩小(&amp;O)</source>
        <translation>Zoom &amp;Out</translation>
    </message>
    <message>
        <source>适合页面(&amp;F)</source>
        <translation>&amp;Fit Page</translation>
    </message>
    <message>
        <source>实际大小(&amp;A)</source>
        <translation>&amp;Actual Size</translation>
    </message>
    <message>
        <source>文件(&amp;F)</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>最近的文件(&amp;R)</source>
        <translation>&amp;Recent Files</translation>
    </message>
    <message>
        <source>编辑(&amp;E)</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>视图(&amp;V)</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>File</translation>
    </message>
    <message>
        <source>工具箱</source>
        <translation>Toolbox</translation>
    </message>
    <message>
        <source>操作历史</source>
        <translation>History</translation>
    </message>
    <message>
        <source>&lt;空&gt;</source>
        <translation>&lt;empty&gt;</translation>
    </message>
    <message>
        <source>未命名</source>
        <translation>Untitled</translation>
    </message>
    <message>
        <source>%1[*] (%2) - 报表设计器</source>
        <translation>%1[*] (%2) - Report Designer</translation>
    </message>
    <message>
        <source>无法打开模板 %1
%2</source>
        <translation>Cannot open the template %1
%2</translation>
    </message>
    <message>
        <source>无法保存模板 %1
%2</source>
        <translation>Cannot save the template %1
%2</translation>
    </message>
    <message>
        <source>已保存 %1</source>
        <translation>Saved %1</translation>
    </message>
    <message>
        <source>页面设置</source>
        <translation>Page Setup</translation>
    </message>
    <message>
        <source>工作区 %1 中没有配置文件 %2</source>
        <translation>The workspace %1 has no profile %2</translation>
    </message>
    <message>
        <source>%1, %2 毫米</source>
        <translation>%1, %2 mm</translation>
    </message>
    <message>
        <source>左对齐(&amp;L)</source>
        <translation>Align &amp;Left</translation>
    </message>
    <message>
        <source>水平居中(&amp;C)</source>
        <translation>Align &amp;Centre</translation>
    </message>
    <message>
        <source>右对齐(&amp;R)</source>
        <translation>Align &amp;Right</translation>
    </message>
    <message>
        <source>顶端对齐(&amp;T)</source>
        <translation>Align &amp;Top</translation>
    </message>
    <message>
        <source>垂直居中(&amp;M)</source>
        <translation>Align &amp;Middle</translation>
    </message>
    <message>
        <source>底端对齐(&amp;B)</source>
        <translation>Align &amp;Bottom</translation>
    </message>
    <message>
        <source>水平均匀分布(&amp;H)</source>
        <translation>Distribute &amp;Horizontally</translation>
    </message>
    <message>
        <source>垂直均匀分布(&amp;V)</source>
        <translation>Distribute &amp;Vertically</translation>
    </message>
    <message>
        <source>相同宽度(&amp;W)</source>
        <translation>Same &amp;Width</translation>
    </message>
    <message>
        <source>相同高度(&amp;E)</source>
        <translation>Same H&amp;eight</translation>
    </message>
    <message>
        <source>置于顶层(&amp;F)</source>
        <translation>Bring to &amp;Front</translation>
    </message>
    <message>
        <source>置于底层(&amp;K)</source>
        <translation>Send to Bac&amp;k</translation>
    </message>
    <message>
        <source>属性(&amp;P)...</source>
        <translation>&amp;Properties...</translation>
    </message>
    <message>
        <source>对齐网格(&amp;S)</source>
        <translation>&amp;Snap to Grid</translation>
    </message>
    <message>
        <source>网格大小(&amp;G)</source>
        <translation>&amp;Grid Size</translation>
    </message>
    <message>
        <source>默认 (10 像素)</source>
        <translation>Default (10 pixels)</translation>
    </message>
    <message>
        <source>%1 毫米</source>
        <translation>%1 mm</translation>
    </message>
    <message>
        <source>页边距参考线(&amp;M)</source>
        <translation>&amp;Margin Guides</translation>
    </message>
    <message>
        <source>排列(&amp;A)</source>
        <translation>&amp;Arrange</translation>
    </message>
    <message>
        <source>顺序(&amp;O)</source>
        <translation>&amp;Order</translation>
    </message>
    <message>
        <source>属性</source>
        <translation>Properties</translation>
    </message>
    <message>
        <source>项目列表</source>
        <translation>Items</translation>
    </message>
    <message>
        <source>模板 %1 已损坏：%2
显示的内容可能不完整；保存到此文件前会先询问。</source>
        <translation>The template %1 is damaged: %2
What is shown may be incomplete; you will be asked before it is saved over this file.</translation>
    </message>
</context>
<context>
    <name>coagulation::FormatToolBar</name>
    <message>
        <source>格式</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>字体</source>
        <translation>Font</translation>
    </message>
    <message>
        <source> 像素</source>
        <translation> px</translation>
    </message>
    <message>
        <source>字号</source>
        <translation>Font size</translation>
    </message>
    <message>
        <source>粗体</source>
        <translation>Bold</translation>
    </message>
    <message>
        <source>斜体</source>
        <translation>Italic</translation>
    </message>
    <message>
        <source>下划线</source>
        <translation>Underline</translation>
    </message>
    <message>
        <source>左对齐</source>
        <translation>Align left</translation>
    </message>
    <message>
        <source>居中</source>
        <translation>Centre</translation>
    </message>
    <message>
        <source>右对齐</source>
        <translation>Align right</translation>
    </message>
    <message>
        <source>线条颜色</source>
        <translation>Line colour</translation>
    </message>
    <message>
        <source>线宽</source>
        <translation>Line width</translation>
    </message>
    <message>
        <source>线型</source>
        <translation>Line style</translation>
    </message>
    <message>
        <source>填充颜色</source>
        <translation>Fill colour</translation>
    </message>
    <message>
        <source>填充样式</source>
        <translation>Fill pattern</translation>
    </message>
</context>
<context>
    <name>coagulation::GeometryPanel</name>
    <message>
        <source>左 (X):</source>
        <translation>Left (X):</translation>
    </message>
    <message>
        <source>上 (Y):</source>
        <translation>Top (Y):</translation>
    </message>
    <message>
        <source>宽度:</source>
        <translation>Width:</translation>
    </message>
    <message>
        <source>高度:</source>
        <translation>Height:</translation>
    </message>
    <message>
        <source> 毫米</source>
        <translation> mm</translation>
    </message>
</context>
<context>
    <name>coagulation::ImageCreator</name>
    <message>
        <source>图像</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>所有格式(%1);;所有文件(*.*)</source>
        <translation>All formats(%1);;All files(*.*)</translation>
    </message>
</context>
<context>
    <name>coagulation::ItemDescription</name>
    <message>
        <source>数据字段</source>
        <translation>Data field</translation>
    </message>
    <message>
        <source>报表属性</source>
        <translation>Report property</translation>
    </message>
    <message>
        <source>配置信息</source>
        <translation>Profile value</translation>
    </message>
</context>
<context>
    <name>coagulation::ItemFactory</name>
    <message>
        <source>通用信息</source>
        <translation>General</translation>
    </message>
    <message>
        <source>医院名称</source>
        <translation>Hospital name</translation>
    </message>
    <message>
        <source>打印日期</source>
        <translation>Print date</translation>
    </message>
    <message>
        <source>打印时间</source>
        <translation>Print time</translation>
    </message>
    <message>
        <source>页码</source>
        <translation>Page number</translation>
    </message>
    <message>
        <source>患者信息</source>
        <translation>Patient</translation>
    </message>
    <message>
        <source>质控血浆</source>
        <translation>QC plasma</translation>
    </message>
    <message>
        <source>质控信息</source>
        <translation>QC information</translation>
    </message>
    <message>
        <source>项目名称</source>
        <translation>Assay name</translation>
    </message>
    <message>
        <source>项目缩写</source>
        <translation>Assay abbreviation</translation>
    </message>
    <message>
        <source>项目单位</source>
        <translation>Assay unit</translation>
    </message>
    <message>
        <source>QC01</source>
        <translation>QC01</translation>
    </message>
    <message>
        <source>维护记录</source>
        <translation>Maintenance record</translation>
    </message>
</context>
<context>
    <name>coagulation::ItemOutline</name>
    <message>
        <source>类型</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>键</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>coagulation::LabText</name>
    <message>
        <source>凝固法</source>
        <translation>Clotting</translation>
    </message>
    <message>
        <source>凝血酶原时间</source>
        <translation>Prothrombin time</translation>
    </message>
    <message>
        <source>凝血酶原活动度</source>
        <translation>Prothrombin activity</translation>
    </message>
    <message>
        <source>凝血酶原比值</source>
        <translation>Prothrombin ratio</translation>
    </message>
    <message>
        <source>国际标准化比值</source>
        <translation>International normalized ratio</translation>
    </message>
    <message>
        <source>活化部分凝血活酶时间</source>
        <translation>Partial thromboplastin time</translation>
    </message>
    <message>
        <source>活化部分凝血活酶时间比值</source>
        <translation>APTT ratio</translation>
    </message>
    <message>
        <source>凝固法(Clauss)</source>
        <translation>Clotting (Clauss)</translation>
    </message>
    <message>
        <source>纤维蛋白原</source>
        <translation>Fibrinogen</translation>
    </message>
    <message>
        <source>纤维蛋白原凝固时间</source>
        <translation>Fibrinogen clotting time</translation>
    </message>
    <message>
        <source>凝血酶时间</source>
        <translation>Thrombin time</translation>
    </message>
    <message>
        <source>免疫比浊法</source>
        <translation>Immunoturbidimetric</translation>
    </message>
    <message>
        <source>D-二聚体</source>
        <translation>D-dimer</translation>
    </message>
    <message>
        <source>纤维蛋白(原)降解产物</source>
        <translation>Fibrin degradation products</translation>
    </message>
    <message>
        <source>发色底物法</source>
        <translation>Chromogenic</translation>
    </message>
    <message>
        <source>抗凝血酶III活性</source>
        <translation>Antithrombin III activity</translation>
    </message>
    <message>
        <source>凝血质控血浆</source>
        <translation>Coagulation control plasma</translation>
    </message>
    <message>
        <source>正常值</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>异常值</source>
        <translation>Abnormal</translation>
    </message>
    <message>
        <source>D-二聚体质控品</source>
        <translation>D-dimer control</translation>
    </message>
    <message>
        <source>低值</source>
        <translation>Low</translation>
    </message>
    <message>
        <source>高值</source>
        <translation>High</translation>
    </message>
    <message>
        <source>FDP质控品</source>
        <translation>FDP control</translation>
    </message>
    <message>
        <source>抗凝血酶质控品</source>
        <translation>Antithrombin control</translation>
    </message>
    <message>
        <source>示例市第一人民医院</source>
        <translation>Example City General Hospital</translation>
    </message>
    <message>
        <source>样本号</source>
        <translation>Sample no.</translation>
    </message>
    <message>
        <source>姓名</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>性别</source>
        <translation>Sex</translation>
    </message>
    <message>
        <source>年龄</source>
        <translation>Age</translation>
    </message>
    <message>
        <source>年龄单位</source>
        <translation>Age unit</translation>
    </message>
    <message>
        <source>科室</source>
        <translation>Department</translation>
    </message>
    <message>
        <source>床号</source>
        <translation>Bed</translation>
    </message>
    <message>
        <source>送检医生</source>
        <translation>Physician</translation>
    </message>
    <message>
        <source>样本类型</source>
        <translation>Sample type</translation>
    </message>
    <message>
        <source>采样时间</source>
        <translation>Collected</translation>
    </message>
    <message>
        <source>接收时间</source>
        <translation>Received</translation>
    </message>
    <message>
        <source>报告时间</source>
        <translation>Reported</translation>
    </message>
    <message>
        <source>出生日期</source>
        <translation>Date of birth</translation>
    </message>
    <message>
        <source>检验时间</source>
        <translation>Tested</translation>
    </message>
    <message>
        <source>临床诊断</source>
        <translation>Diagnosis</translation>
    </message>
    <message>
        <source>备注</source>
        <translation>Remark</translation>
    </message>
    <message>
        <source>质控品名称</source>
        <translation>Control material</translation>
    </message>
    <message>
        <source>批号</source>
        <translation>Lot</translation>
    </message>
    <message>
        <source>水平</source>
        <translation>Level</translation>
    </message>
    <message>
        <source>有效期</source>
        <translation>Expiry</translation>
    </message>
    <message>
        <source>生产厂家</source>
        <translation>Manufacturer</translation>
    </message>
    <message>
        <source>检测项目</source>
        <translation>Assay</translation>
    </message>
    <message>
        <source>单位</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>靶值</source>
        <translation>Target</translation>
    </message>
    <message>
        <source>均值</source>
        <translation>Mean</translation>
    </message>
    <message>
        <source>标准差</source>
        <translation>SD</translation>
    </message>
    <message>
        <source>心内科</source>
        <translation>Cardiology</translation>
    </message>
    <message>
        <source>冠状动脉粥样硬化性心脏病</source>
        <translation>Coronary artery disease</translation>
    </message>
    <message>
        <source>心房颤动</source>
        <translation>Atrial fibrillation</translation>
    </message>
    <message>
        <source>急性心肌梗死</source>
        <translation>Acute myocardial infarction</translation>
    </message>
    <message>
        <source>慢性心力衰竭</source>
        <translation>Chronic heart failure</translation>
    </message>
    <message>
        <source>机械瓣膜置换术后</source>
        <translation>Mechanical heart valve</translation>
    </message>
    <message>
        <source>急诊科</source>
        <translation>Emergency</translation>
    </message>
    <message>
        <source>急性胸痛</source>
        <translation>Acute chest pain</translation>
    </message>
    <message>
        <source>多发伤</source>
        <translation>Multiple trauma</translation>
    </message>
    <message>
        <source>上消化道出血</source>
        <translation>Upper GI bleeding</translation>
    </message>
    <message>
        <source>急性脑卒中</source>
        <translation>Acute stroke</translation>
    </message>
    <message>
        <source>肺栓塞待排</source>
        <translation>Suspected pulmonary embolism</translation>
    </message>
    <message>
        <source>神经内科</source>
        <translation>Neurology</translation>
    </message>
    <message>
        <source>脑梗死</source>
        <translation>Cerebral infarction</translation>
    </message>
    <message>
        <source>短暂性脑缺血发作</source>
        <translation>Transient ischaemic attack</translation>
    </message>
    <message>
        <source>脑静脉窦血栓形成</source>
        <translation>Cerebral venous sinus thrombosis</translation>
    </message>
    <message>
        <source>普外科</source>
        <translation>General surgery</translation>
    </message>
    <message>
        <source>胆囊结石</source>
        <translation>Gallstones</translation>
    </message>
    <message>
        <source>急性阑尾炎</source>
        <translation>Acute appendicitis</translation>
    </message>
    <message>
        <source>术前检查</source>
        <translation>Pre-operative check</translation>
    </message>
    <message>
        <source>骨科</source>
        <translation>Orthopaedics</translation>
    </message>
    <message>
        <source>股骨颈骨折</source>
        <translation>Femoral neck fracture</translation>
    </message>
    <message>
        <source>腰椎间盘突出症</source>
        <translation>Lumbar disc herniation</translation>
    </message>
    <message>
        <source>下肢深静脉血栓形成</source>
        <translation>Deep vein thrombosis</translation>
    </message>
    <message>
        <source>妇产科</source>
        <translation>Obstetrics</translation>
    </message>
    <message>
        <source>孕晚期</source>
        <translation>Third trimester</translation>
    </message>
    <message>
        <source>子痫前期</source>
        <translation>Pre-eclampsia</translation>
    </message>
    <message>
        <source>产后出血</source>
        <translation>Postpartum haemorrhage</translation>
    </message>
    <message>
        <source>消化内科</source>
        <translation>Gastroenterology</translation>
    </message>
    <message>
        <source>肝硬化失代偿期</source>
        <translation>Decompensated cirrhosis</translation>
    </message>
    <message>
        <source>慢性乙型病毒性肝炎</source>
        <translation>Chronic hepatitis B</translation>
    </message>
    <message>
        <source>急性胰腺炎</source>
        <translation>Acute pancreatitis</translation>
    </message>
    <message>
        <source>重症医学科</source>
        <translation>Intensive care</translation>
    </message>
    <message>
        <source>脓毒症</source>
        <translation>Sepsis</translation>
    </message>
    <message>
        <source>弥散性血管内凝血</source>
        <translation>Disseminated intravascular coagulation</translation>
    </message>
    <message>
        <source>多器官功能障碍综合征</source>
        <translation>Multiple organ dysfunction</translation>
    </message>
    <message>
        <source>血液内科</source>
        <translation>Haematology</translation>
    </message>
    <message>
        <source>血友病A</source>
        <translation>Haemophilia A</translation>
    </message>
    <message>
        <source>急性早幼粒细胞白血病</source>
        <translation>Acute promyelocytic leukaemia</translation>
    </message>
    <message>
        <source>免疫性血小板减少症</source>
        <translation>Immune thrombocytopenia</translation>
    </message>
    <message>
        <source>儿科</source>
        <translation>Paediatrics</translation>
    </message>
    <message>
        <source>支气管肺炎</source>
        <translation>Bronchopneumonia</translation>
    </message>
    <message>
        <source>新生儿黄疸</source>
        <translation>Neonatal jaundice</translation>
    </message>
    <message>
        <source>过敏性紫癜</source>
        <translation>Henoch-Schönlein purpura</translation>
    </message>
    <message>
        <source>门诊</source>
        <translation>Outpatients</translation>
    </message>
    <message>
        <source>华法林用药监测</source>
        <translation>Warfarin monitoring</translation>
    </message>
    <message>
        <source>健康体检</source>
        <translation>Health check</translation>
    </message>
    <message>
        <source>检查试剂位温度</source>
        <translation>Reagent temperature</translation>
    </message>
    <message>
        <source>试剂位温度偏高，已通知工程师</source>
        <translation>Reagent area too warm, engineer called</translation>
    </message>
    <message>
        <source>检查清洗液余量</source>
        <translation>Wash solution level</translation>
    </message>
    <message>
        <source>清洗液不足，已补充</source>
        <translation>Wash solution low, refilled</translation>
    </message>
    <message>
        <source>排空废液</source>
        <translation>Empty waste</translation>
    </message>
    <message>
        <source>废液桶传感器报警，已复位</source>
        <translation>Waste container sensor alarm, reset</translation>
    </message>
    <message>
        <source>清洗探针</source>
        <translation>Clean probe</translation>
    </message>
    <message>
        <source>探针堵塞，已疏通</source>
        <translation>Probe blocked, cleared</translation>
    </message>
    <message>
        <source>检查反应杯余量</source>
        <translation>Cuvette supply</translation>
    </message>
    <message>
        <source>反应杯不足，已补充</source>
        <translation>Cuvettes low, refilled</translation>
    </message>
    <message>
        <source>更换清洗液</source>
        <translation>Replace wash solution</translation>
    </message>
    <message>
        <source>清洗液批号更换</source>
        <translation>New wash solution lot</translation>
    </message>
    <message>
        <source>清洁样本针和试剂针外壁</source>
        <translation>Wipe probes</translation>
    </message>
    <message>
        <source>针外壁有结晶，已反复擦拭</source>
        <translation>Crystals on the probes, wiped repeatedly</translation>
    </message>
    <message>
        <source>清洁试剂仓</source>
        <translation>Clean reagent bay</translation>
    </message>
    <message>
        <source>试剂仓内有冷凝水，已擦干</source>
        <translation>Condensation in reagent bay, dried</translation>
    </message>
    <message>
        <source>检查管路有无漏液</source>
        <translation>Tubing leaks</translation>
    </message>
    <message>
        <source>管路接头渗漏，已紧固</source>
        <translation>Tubing joint leaking, tightened</translation>
    </message>
    <message>
        <source>清空废弃反应杯盒</source>
        <translation>Empty cuvette bin</translation>
    </message>
    <message>
        <source>清洁散热过滤网</source>
        <translation>Clean air filter</translation>
    </message>
    <message>
        <source>过滤网积尘较多</source>
        <translation>Air filter very dusty</translation>
    </message>
    <message>
        <source>检查光路及光源强度</source>
        <translation>Optics and lamp</translation>
    </message>
    <message>
        <source>光源强度下降，已预约更换灯泡</source>
        <translation>Lamp intensity low, replacement booked</translation>
    </message>
    <message>
        <source>检查注射器密封性</source>
        <translation>Syringe seals</translation>
    </message>
    <message>
        <source>注射器漏气，已更换密封圈</source>
        <translation>Syringe leaking, seal replaced</translation>
    </message>
    <message>
        <source>清洁反应盘</source>
        <translation>Clean reaction plate</translation>
    </message>
    <message>
        <source>备份数据库</source>
        <translation>Back up data</translation>
    </message>
    <message>
        <source>备份盘空间不足，已清理</source>
        <translation>Backup disk full, cleaned up</translation>
    </message>
    <message>
        <source>1号凝血分析仪</source>
        <translation>Coagulation analyser 1</translation>
    </message>
    <message>
        <source>2号凝血分析仪</source>
        <translation>Coagulation analyser 2</translation>
    </message>
    <message>
        <source>已完成</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>异常</source>
        <translation>Abnormal</translation>
    </message>
    <message>
        <source>正常</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>男</source>
        <translation>Male</translation>
    </message>
    <message>
        <source>女</source>
        <translation>Female</translation>
    </message>
    <message>
        <source>岁</source>
        <translation>y</translation>
    </message>
    <message>
        <source>月</source>
        <translation>mo</translation>
    </message>
    <message>
        <source>天</source>
        <translation>d</translation>
    </message>
    <message>
        <source>%1之子</source>
        <translation>Son of %1</translation>
    </message>
    <message>
        <source>%1之女</source>
        <translation>Daughter of %1</translation>
    </message>
    <message>
        <source>%1床</source>
        <translation>Bed %1</translation>
    </message>
    <message>
        <source>抢救%1</source>
        <translation>Resus %1</translation>
    </message>
    <message>
        <source>枸橼酸钠抗凝血</source>
        <translation>Citrated blood</translation>
    </message>
    <message>
        <source>乏血小板血浆</source>
        <translation>Platelet-poor plasma</translation>
    </message>
    <message>
        <source>轻度溶血</source>
        <translation>Slightly haemolysed</translation>
    </message>
    <message>
        <source>脂血</source>
        <translation>Lipaemic</translation>
    </message>
    <message>
        <source>复查</source>
        <translation>Repeat test</translation>
    </message>
    <message>
        <source>标本量偏少</source>
        <translation>Low sample volume</translation>
    </message>
    <message>
        <source>检验科</source>
        <translation>Laboratory</translation>
    </message>
    <message>
        <source>质控血浆</source>
        <translation>QC plasma</translation>
    </message>
    <message>
        <source>室内质控</source>
        <translation>Internal QC</translation>
    </message>
    <message>
        <source>危急值已电话通知临床</source>
        <translation>Critical value phoned to the ward</translation>
    </message>
    <message>
        <source>示例医疗器械有限公司</source>
        <translation>Example Medical Devices Ltd.</translation>
    </message>
    <message>
        <source>试剂位温度曾短时升至十二摄氏度，复测恢复正常；已记录报警时间并通知工程师，下次巡检时检查制冷模块与温度传感器</source>
        <translation>Reagent position briefly reached 12 °C, normal again on re-measuring; alarm time recorded and the engineer informed, cooling module and temperature sensor to be checked at the next service</translation>
    </message>
    <message>
        <source>标本轻度溶血，结果仅供参考；首次检测结果异常，已用原标本复查，复查结果与首次一致；危急值已电话通知临床医生并登记</source>
        <translation>Sample slightly haemolysed, results for reference only; first results abnormal, re-measured from the same sample with the same results; critical values phoned to the clinician and logged</translation>
    </message>
    <message>
        <source>%1(%2)</source>
        <comment>control material (level)</comment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>coagulation::Language</name>
    <message>
        <source>界面和报告的语言：zh_CN（默认）或 en</source>
        <translation>language of the program and its reports: zh_CN (default) or en</translation>
    </message>
</context>
<context>
    <name>coagulation::LineCreator</name>
    <message>
        <source>直线</source>
        <translation>Line</translation>
    </message>
</context>
<context>
    <name>coagulation::MaintenanceManager</name>
    <message>
        <source>日保养</source>
        <translation>Daily maintenance</translation>
    </message>
    <message>
        <source>周保养</source>
        <translation>Weekly maintenance</translation>
    </message>
    <message>
        <source>月保养</source>
        <translation>Monthly maintenance</translation>
    </message>
</context>
<context>
    <name>coagulation::MaintenanceMonthCreator</name>
    <message>
        <source>维护月份</source>
        <translation>Maintenance month</translation>
    </message>
</context>
<context>
    <name>coagulation::MaintenanceOperatorCreator</name>
    <message>
        <source>操作者</source>
        <translation>Operator</translation>
    </message>
</context>
<context>
    <name>coagulation::MaintenanceRecordCreator</name>
    <message>
        <source>维护记录表</source>
        <translation>Maintenance record table</translation>
    </message>
</context>
<context>
    <name>coagulation::MaintenanceRecordModel</name>
    <message>
        <source>无记录</source>
        <translation>No records</translation>
    </message>
    <message>
        <source>备注</source>
        <translation>Remark</translation>
    </message>
    <message>
        <source>正常</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>已完成</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
</context>
<context>
    <name>coagulation::OverflowCheck</name>
    <message>
        <source>表格 %1 有 %2 行，模板只留出 %3 行的位置</source>
        <translation>table %1 has %2 rows, the template has room for %3</translation>
    </message>
    <message>
        <source>%1 超出页面</source>
        <translation>%1 runs past the page</translation>
    </message>
    <message>
        <source>%1 超出模板留出的位置，压住了 %2</source>
        <translation>%1 outgrows the room its template gives it and covers %2</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>coagulation::OverflowPreflight</name>
    <message>
        <source>病人 %1（样本号 %2）</source>
        <translation>patient %1 (sample %2)</translation>
    </message>
    <message>
        <source>质控品 %1 %2（批号 %3）第 %4 页</source>
        <translation>control %1 %2 (lot %3), page %4</translation>
    </message>
    <message>
        <source>%1 %2 的维护记录</source>
        <translation>maintenance records of %1, %2</translation>
    </message>
    <message>
        <source>警告：%1</source>
        <translation>warning: %1</translation>
    </message>
    <message>
        <source>有 %1 处内容超出模板留出的位置（--strict），没有打印，也没有记录打印时间</source>
        <translation>%1 item(s) outgrow the room their template gives them (--strict): nothing was printed and no print time was recorded</translation>
    </message>
</context>
<context>
    <name>coagulation::PageSetupDialog</name>
    <message>
        <source>纵向</source>
        <translation>Portrait</translation>
    </message>
    <message>
        <source>横向</source>
        <translation>Landscape</translation>
    </message>
    <message>
        <source>页面设置</source>
        <translation>Page Setup</translation>
    </message>
    <message>
        <source>自定义</source>
        <translation>Custom</translation>
    </message>
    <message>
        <source> 毫米</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>纸张大小:</source>
        <translation>Paper size:</translation>
    </message>
    <message>
        <source>宽度:</source>
        <translation>Width:</translation>
    </message>
    <message>
        <source>高度:</source>
        <translation>Height:</translation>
    </message>
    <message>
        <source>方向:</source>
        <translation>Orientation:</translation>
    </message>
    <message>
        <source>左</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>上</source>
        <translation>Top</translation>
    </message>
    <message>
        <source>右</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>下</source>
        <translation>Bottom</translation>
    </message>
    <message>
        <source>页边距参考线:</source>
        <translation>Margin guides:</translation>
    </message>
</context>
<context>
    <name>coagulation::PatientTableCreator</name>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
</context>
<context>
    <name>coagulation::PreviewDialog</name>
    <message>
        <source>打印预览</source>
        <translation>Print Preview</translation>
    </message>
    <message>
        <source>维护月份:</source>
        <translation>Maintenance month:</translation>
    </message>
    <message>
        <source>质控品:</source>
        <translation>Controls:</translation>
    </message>
    <message>
        <source>样本:</source>
        <translation>Samples:</translation>
    </message>
    <message>
        <source>从:</source>
        <translation>From:</translation>
    </message>
    <message>
        <source>到:</source>
        <translation>To:</translation>
    </message>
</context>
<context>
    <name>coagulation::PreviewWorkspace</name>
    <message>
        <source>无法创建临时文件夹：%1</source>
        <translation>Cannot create a temporary folder: %1</translation>
    </message>
    <message>
        <source>无法复制配置文件 %1</source>
        <translation>Cannot copy the settings file %1</translation>
    </message>
    <message>
        <source>工作区缺少数据库文件 %1</source>
        <translation>The workspace lacks the database file %1</translation>
    </message>
    <message>
        <source>无法复制数据库文件 %1</source>
        <translation>Cannot copy the database file %1</translation>
    </message>
</context>
<context>
    <name>coagulation::PrintTool</name>
    <message>
        <source>缺少默认模板 %1</source>
        <translation>The default template %1 is missing</translation>
    </message>
    <message>
        <source>无法把 %1 复制到 %2</source>
        <translation>Cannot copy %1 to %2</translation>
    </message>
    <message>
        <source>文件夹 %1 不是空的; 用 --force 在其中重新建立演示工作区 (其中的数据库, 配置和模板会被替换)</source>
        <translation>The folder %1 is not empty; give --force to make the demo workspace there anew (its databases, profile and templates are replaced)</translation>
    </message>
    <message>
        <source>无法建立文件夹 %1</source>
        <translation>Cannot create the folder %1</translation>
    </message>
    <message>
        <source>无法在 %1 中生成实验室数据库</source>
        <translation>Cannot generate the laboratory databases in %1</translation>
    </message>
    <message>
        <source>--dialog 和 --preview 需要图形显示</source>
        <translation>--dialog and --preview need a display</translation>
    </message>
    <message>
        <source>用法见 &apos;%1 --help&apos;.</source>
        <translation>See &apos;%1 --help&apos; for the usage.</translation>
    </message>
    <message>
        <source>%1 是一个文件夹</source>
        <translation>%1 is a folder</translation>
    </message>
    <message>
        <source>无法在文件夹 %1 中写入文件</source>
        <translation>Cannot write files in the folder %1</translation>
    </message>
    <message>
        <source>无法写出文件 %1</source>
        <translation>Cannot write the file %1</translation>
    </message>
    <message>
        <source>病人结果报告</source>
        <translation>patient result reports</translation>
    </message>
    <message>
        <source>质控样本</source>
        <translation>QC samples</translation>
    </message>
    <message>
        <source>质控报告</source>
        <translation>QC reports</translation>
    </message>
    <message>
        <source>维护记录报告</source>
        <translation>maintenance reports</translation>
    </message>
    <message>
        <source>配置文件 %1 不存在</source>
        <translation>The profile %1 does not exist</translation>
    </message>
    <message>
        <source>模板文件夹 %1 不存在</source>
        <translation>The template folder %1 does not exist</translation>
    </message>
    <message>
        <source>找不到报表插件</source>
        <translation>No report plug-in found</translation>
    </message>
    <message>
        <source>报表插件 %1 没有提供打印机</source>
        <translation>The report plug-in %1 made no printer</translation>
    </message>
    <message>
        <source>演示工作区: %1</source>
        <translation>Demo workspace: %1</translation>
    </message>
    <message>
        <source>模板文件夹: %1</source>
        <translation>Template folder: %1</translation>
    </message>
    <message>
        <source>%1 (%2): %3
  记住的模板: %4</source>
        <translation>%1 (%2): %3
  remembered: %4</translation>
    </message>
    <message>
        <source>无</source>
        <translation>none</translation>
    </message>
    <message>
        <source>没有要检查的模板</source>
        <translation>No templates to check</translation>
    </message>
    <message>
        <source>%1: 完好</source>
        <translation>%1: complete</translation>
    </message>
    <message>
        <source>模板 %1 已损坏: %2</source>
        <translation>The template %1 is damaged: %2</translation>
    </message>
    <message>
        <source>%1 中没有名为 &apos;%2&apos; 的%3模板 (有: %4)</source>
        <translation>No template &apos;%2&apos; for %3 in %1 (there are: %4)</translation>
    </message>
    <message>
        <source>没有为%1选择模板 (配置项 %2); 请用 --template 名称 给出 (有: %3)</source>
        <translation>No template chosen for %1 (profile key %2); give --template NAME (there are: %3)</translation>
    </message>
    <message>
        <source>没有要打印的内容</source>
        <translation>Nothing to print</translation>
    </message>
    <message>
        <source>没有为质控样本选择模板 (配置项 report/qc): 样本 %1 不会打印</source>
        <translation>No template chosen for QC samples (profile key report/qc): %1 will be left out</translation>
    </message>
    <message>
        <source>没有写出 %1</source>
        <translation>%1 was not written</translation>
    </message>
    <message>
        <source>打印失败</source>
        <translation>Printing failed</translation>
    </message>
    <message>
        <source>%1; 没有记录打印时间</source>
        <translation>%1; no print time was recorded</translation>
    </message>
    <message>
        <source>已写出 %1</source>
        <translation>Wrote %1</translation>
    </message>
    <message>
        <source>无法读取病人表</source>
        <translation>Cannot read the patient table</translation>
    </message>
    <message>
        <source>没有编号为 %1 的病人</source>
        <translation>No patient with id %1</translation>
    </message>
    <message>
        <source>没有样本号为 &apos;%1&apos; 的样本</source>
        <translation>No sample with the number &apos;%1&apos;</translation>
    </message>
    <message>
        <source>质控数据库 %1 中没有试剂</source>
        <translation>The QC database %1 holds no reagents</translation>
    </message>
    <message>
        <source>没有编号为 %1 的试剂</source>
        <translation>No reagent with id %1</translation>
    </message>
    <message>
        <source>无法读取试剂 %1 的质控数据</source>
        <translation>Cannot read the QC data of reagent %1</translation>
    </message>
    <message>
        <source>质控数据库 %1 中没有工作台</source>
        <translation>The QC database %1 holds no workbenches</translation>
    </message>
    <message>
        <source>没有编号为 %1 的工作台</source>
        <translation>No workbench with id %1</translation>
    </message>
    <message>
        <source>数据库文件 %1 不存在</source>
        <translation>The database file %1 does not exist</translation>
    </message>
    <message>
        <source>无法读取数据库文件 %1 (不是 SQLite 数据库或已损坏)</source>
        <translation>Cannot read the database file %1 (not an SQLite database, or damaged)</translation>
    </message>
    <message>
        <source>数据库 %1 中没有表 &quot;%2&quot;</source>
        <translation>The database %1 has no table &quot;%2&quot;</translation>
    </message>
    <message>
        <source>数据库 %1 的表 &quot;%2&quot; 中没有列 &quot;%3&quot;</source>
        <translation>The table &quot;%2&quot; of the database %1 has no column &quot;%3&quot;</translation>
    </message>
</context>
<context>
    <name>coagulation::PropertyPanel</name>
    <message>
        <source>未选中项目</source>
        <translation>No item selected</translation>
    </message>
    <message>
        <source>粗体</source>
        <translation>Bold</translation>
    </message>
    <message>
        <source>斜体</source>
        <translation>Italic</translation>
    </message>
    <message>
        <source>下划线</source>
        <translation>Underline</translation>
    </message>
    <message>
        <source> 像素</source>
        <translation> px</translation>
    </message>
    <message>
        <source>左对齐</source>
        <translation>Align left</translation>
    </message>
    <message>
        <source>居中</source>
        <translation>Centre</translation>
    </message>
    <message>
        <source>右对齐</source>
        <translation>Align right</translation>
    </message>
    <message>
        <source>线条颜色</source>
        <translation>Line colour</translation>
    </message>
    <message>
        <source>填充颜色</source>
        <translation>Fill colour</translation>
    </message>
    <message>
        <source>类型:</source>
        <translation>Kind:</translation>
    </message>
    <message>
        <source>内容:</source>
        <translation>Shows:</translation>
    </message>
    <message>
        <source>文本:</source>
        <translation>Text:</translation>
    </message>
    <message>
        <source>字体:</source>
        <translation>Font:</translation>
    </message>
    <message>
        <source>字号:</source>
        <translation>Size:</translation>
    </message>
    <message>
        <source>字形:</source>
        <translation>Style:</translation>
    </message>
    <message>
        <source>对齐:</source>
        <translation>Alignment:</translation>
    </message>
    <message>
        <source>线条:</source>
        <translation>Line:</translation>
    </message>
    <message>
        <source>填充:</source>
        <translation>Fill:</translation>
    </message>
    <message numerus="yes">
        <source>%n 项</source>
        <translation>
            <numerusform>%n item</numerusform>
            <numerusform>%n items</numerusform>
        </translation>
    </message>
    <message>
        <source>编辑文字</source>
        <translation>Edit text</translation>
    </message>
</context>
<context>
    <name>coagulation::QcChartCreator</name>
    <message>
        <source>质控图</source>
        <translation>QC chart</translation>
    </message>
</context>
<context>
    <name>coagulation::QcInfoDetailsTableCreator</name>
    <message>
        <source>多规则/上下限值（带计算值）</source>
        <translation>Multi-rule/limits (with computed values)</translation>
    </message>
</context>
<context>
    <name>coagulation::QcInfoTableCreator</name>
    <message>
        <source>多规则/上下限值</source>
        <translation>Multi-rule/limits</translation>
    </message>
</context>
<context>
    <name>coagulation::QcPlot</name>
    <message>
        <source>上停止限</source>
        <translation>Upper stop limit</translation>
    </message>
    <message>
        <source>上标记限</source>
        <translation>Upper warning limit</translation>
    </message>
    <message>
        <source>靶值</source>
        <translation>Target</translation>
    </message>
    <message>
        <source>下标记限</source>
        <translation>Lower warning limit</translation>
    </message>
    <message>
        <source>下停止限</source>
        <translation>Lower stop limit</translation>
    </message>
    <message>
        <source>均值</source>
        <translation>Mean</translation>
    </message>
    <message>
        <source>已剔除</source>
        <translation>excluded</translation>
    </message>
</context>
<context>
    <name>coagulation::QcTableCreator</name>
    <message>
        <source>质控结果</source>
        <translation>QC results</translation>
    </message>
</context>
<context>
    <name>coagulation::RectCreator</name>
    <message>
        <source>矩形</source>
        <translation>Rectangle</translation>
    </message>
</context>
<context>
    <name>coagulation::Report</name>
    <message>
        <source>样本报告单</source>
        <translation>Sample report</translation>
    </message>
    <message>
        <source>质控报告单</source>
        <translation>QC report</translation>
    </message>
    <message>
        <source>维护记录报告单</source>
        <translation>Maintenance record report</translation>
    </message>
    <message>
        <source>未知的报表类型</source>
        <translation>Unknown report type</translation>
    </message>
    <message>
        <source>错误的文件格式</source>
        <translation>Wrong file format</translation>
    </message>
    <message>
        <source>无法读取高版本的文档</source>
        <translation>Cannot read a document of a newer version</translation>
    </message>
    <message>
        <source>自动调整大小</source>
        <translation>Adjust size automatically</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportArranger</name>
    <message>
        <source>左对齐</source>
        <translation>Align left</translation>
    </message>
    <message>
        <source>水平居中</source>
        <translation>Align centre</translation>
    </message>
    <message>
        <source>右对齐</source>
        <translation>Align right</translation>
    </message>
    <message>
        <source>顶端对齐</source>
        <translation>Align top</translation>
    </message>
    <message>
        <source>垂直居中</source>
        <translation>Align middle</translation>
    </message>
    <message>
        <source>底端对齐</source>
        <translation>Align bottom</translation>
    </message>
    <message>
        <source>水平均匀分布</source>
        <translation>Distribute horizontally</translation>
    </message>
    <message>
        <source>垂直均匀分布</source>
        <translation>Distribute vertically</translation>
    </message>
    <message>
        <source>相同宽度</source>
        <translation>Same width</translation>
    </message>
    <message>
        <source>相同高度</source>
        <translation>Same height</translation>
    </message>
    <message>
        <source>置于顶层</source>
        <translation>Bring to front</translation>
    </message>
    <message>
        <source>置于底层</source>
        <translation>Send to back</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportEditor</name>
    <message>
        <source>删除</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>粘贴</source>
        <translation>Paste</translation>
    </message>
    <message numerus="yes">
        <source>移动 %n 项</source>
        <translation>
            <numerusform>Move %n item</numerusform>
            <numerusform>Move %n items</numerusform>
        </translation>
    </message>
    <message>
        <source>更改内容</source>
        <translation>Change what it shows</translation>
    </message>
    <message>
        <source>调整大小</source>
        <translation>Resize</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportItem</name>
    <message>
        <source>无法创建 %1 对象</source>
        <translation>Cannot create the object %1</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportOperatorItem</name>
    <message>
        <source>操作者</source>
        <translation>Operator</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportPatientTableItem</name>
    <message>
        <source>代码</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>项目名称</source>
        <translation>Assay</translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>单位</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>标志</source>
        <translation>Flag</translation>
    </message>
    <message>
        <source>参考值</source>
        <translation>Reference</translation>
    </message>
    <message>
        <source>凝血酶原时间</source>
        <translation>Prothrombin time</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportPrinter</name>
    <message>
        <source>质控样本</source>
        <translation>QC sample</translation>
    </message>
    <message>
        <source>病人样本</source>
        <translation>patient sample</translation>
    </message>
    <message>
        <source>质控报表</source>
        <translation>QC report</translation>
    </message>
    <message>
        <source>维护记录</source>
        <translation>maintenance record</translation>
    </message>
    <message>
        <source>未知的打印模板类型.</source>
        <translation>Unknown print template type.</translation>
    </message>
    <message>
        <source>无法加载打印模板 %1
%2</source>
        <translation>Cannot load the print template %1
%2</translation>
    </message>
    <message>
        <source>请选择一个%1打印模板:</source>
        <translation>Choose a %1 print template:</translation>
    </message>
    <message>
        <source>无法写入文件 %1</source>
        <translation>Cannot write the file %1</translation>
    </message>
    <message>
        <source>没有可用的打印机.</source>
        <translation>No printer available.</translation>
    </message>
    <message>
        <source>无法打开打印机 %1</source>
        <translation>Cannot open the printer %1</translation>
    </message>
    <message>
        <source>数据库正被其他程序写入, 等待 %1 秒后仍无法记录打印时间</source>
        <translation>Another program is writing to the database; after waiting %1 seconds the print times still cannot be recorded</translation>
    </message>
    <message>
        <source>打印机 %1 报告了错误.</source>
        <translation>The printer %1 reported an error.</translation>
    </message>
    <message>
        <source>文件 %1 没有完整写出.</source>
        <translation>The file %1 was not written completely.</translation>
    </message>
    <message>
        <source>没有打印任何报告.</source>
        <translation>No report was printed.</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportPropItem</name>
    <message>
        <source>%1/%2</source>
        <translation>%1/%2</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportQcInfoDetailsTableItem</name>
    <message>
        <source>上停止限</source>
        <translation>Upper stop limit</translation>
    </message>
    <message>
        <source>上标记限</source>
        <translation>Upper warning limit</translation>
    </message>
    <message>
        <source>靶值</source>
        <translation>Target</translation>
    </message>
    <message>
        <source>下标记限</source>
        <translation>Lower warning limit</translation>
    </message>
    <message>
        <source>下停止限</source>
        <translation>Lower stop limit</translation>
    </message>
    <message>
        <source>平均值</source>
        <translation>Mean</translation>
    </message>
    <message>
        <source>SD</source>
        <translation>SD</translation>
    </message>
    <message>
        <source>CV</source>
        <translation>CV</translation>
    </message>
    <message>
        <source>质控数量</source>
        <translation>QC count</translation>
    </message>
    <message>
        <source>计算均值</source>
        <translation>Computed mean</translation>
    </message>
    <message>
        <source>计算SD</source>
        <translation>Computed SD</translation>
    </message>
    <message>
        <source>计算CV</source>
        <translation>Computed CV</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportQcInfoTableItem</name>
    <message>
        <source>上停止限</source>
        <translation>Upper stop limit</translation>
    </message>
    <message>
        <source>上标记限</source>
        <translation>Upper warning limit</translation>
    </message>
    <message>
        <source>靶值</source>
        <translation>Target</translation>
    </message>
    <message>
        <source>下标记限</source>
        <translation>Lower warning limit</translation>
    </message>
    <message>
        <source>下停止限</source>
        <translation>Lower stop limit</translation>
    </message>
    <message>
        <source>平均值</source>
        <translation>Mean</translation>
    </message>
    <message>
        <source>SD</source>
        <translation>SD</translation>
    </message>
    <message>
        <source>CV</source>
        <translation>CV</translation>
    </message>
    <message>
        <source>质控数量</source>
        <translation>QC count</translation>
    </message>
    <message>
        <source>计算均值</source>
        <translation>Computed mean</translation>
    </message>
    <message>
        <source>计算SD</source>
        <translation>Computed SD</translation>
    </message>
    <message>
        <source>计算CV</source>
        <translation>Computed CV</translation>
    </message>
</context>
<context>
    <name>coagulation::ReportQcTableItem</name>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>时间</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
</context>
<context>
    <name>coagulation::StyleEditor</name>
    <message>
        <source>无</source>
        <translation>None</translation>
    </message>
    <message>
        <source>实线</source>
        <translation>Solid</translation>
    </message>
    <message>
        <source>虚线</source>
        <translation>Dashed</translation>
    </message>
    <message>
        <source>点线</source>
        <translation>Dotted</translation>
    </message>
    <message>
        <source>点划线</source>
        <translation>Dash-dot</translation>
    </message>
    <message>
        <source>双点划线</source>
        <translation>Dash-dot-dot</translation>
    </message>
    <message>
        <source>无填充</source>
        <translation>No fill</translation>
    </message>
    <message>
        <source>实心</source>
        <translation>Solid</translation>
    </message>
    <message>
        <source>网点</source>
        <translation>Dots</translation>
    </message>
    <message>
        <source>横线</source>
        <translation>Horizontal lines</translation>
    </message>
    <message>
        <source>竖线</source>
        <translation>Vertical lines</translation>
    </message>
    <message>
        <source>网格</source>
        <translation>Grid</translation>
    </message>
    <message>
        <source>斜线</source>
        <translation>Diagonal lines</translation>
    </message>
    <message>
        <source>斜网格</source>
        <translation>Diagonal grid</translation>
    </message>
    <message>
        <source>字体</source>
        <translation>Font</translation>
    </message>
    <message>
        <source>字号</source>
        <translation>Font size</translation>
    </message>
    <message>
        <source>加粗</source>
        <translation>Bold</translation>
    </message>
    <message>
        <source>斜体</source>
        <translation>Italic</translation>
    </message>
    <message>
        <source>下划线</source>
        <translation>Underline</translation>
    </message>
    <message>
        <source>对齐</source>
        <translation>Alignment</translation>
    </message>
    <message>
        <source>线条颜色</source>
        <translation>Line colour</translation>
    </message>
    <message>
        <source>线宽</source>
        <translation>Line width</translation>
    </message>
    <message>
        <source>线型</source>
        <translation>Line style</translation>
    </message>
    <message>
        <source>填充颜色</source>
        <translation>Fill colour</translation>
    </message>
    <message>
        <source>填充样式</source>
        <translation>Fill style</translation>
    </message>
</context>
<context>
    <name>coagulation::TemplateBuilder</name>
    <message>
        <source>凝血检验报告单</source>
        <translation>Coagulation Test Report</translation>
    </message>
    <message>
        <source>质控样本报告单</source>
        <translation>QC Sample Report</translation>
    </message>
    <message>
        <source>室内质控报告</source>
        <translation>Internal QC Report</translation>
    </message>
    <message>
        <source>维护保养记录</source>
        <translation>Maintenance Record</translation>
    </message>
    <message>
        <source>凝血分析仪维护保养记录</source>
        <translation>Coagulation Analyser Maintenance Record</translation>
    </message>
    <message>
        <source>维护月份：</source>
        <translation>Month:</translation>
    </message>
    <message>
        <source>[维护月份]</source>
        <translation>[month]</translation>
    </message>
    <message>
        <source>操作者：</source>
        <translation>Operator:</translation>
    </message>
    <message>
        <source>审核者：</source>
        <translation>Reviewer:</translation>
    </message>
    <message>
        <source>打印日期：</source>
        <translation>Printed:</translation>
    </message>
    <message>
        <source>[打印日期]</source>
        <translation>[print date]</translation>
    </message>
    <message>
        <source>打印时间：</source>
        <translation>Time:</translation>
    </message>
    <message>
        <source>[打印时间]</source>
        <translation>[print time]</translation>
    </message>
    <message>
        <source>页码：</source>
        <translation>Page:</translation>
    </message>
    <message>
        <source>代码</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>项目名称</source>
        <translation>Assay</translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>单位</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Flag</translation>
    </message>
    <message>
        <source>参考区间</source>
        <translation>Reference</translation>
    </message>
    <message>
        <source>备注：</source>
        <translation>Notes:</translation>
    </message>
    <message>
        <source>检验者：</source>
        <translation>Analyst:</translation>
    </message>
    <message>
        <source>本报告仅对所检测标本负责，如有疑问请于三日内与检验科联系。</source>
        <translation>This report applies to the tested sample only. Please contact the laboratory within three days with any questions.</translation>
    </message>
    <message>
        <source>姓名：</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>性别：</source>
        <translation>Sex:</translation>
    </message>
    <message>
        <source>年龄：</source>
        <translation>Age:</translation>
    </message>
    <message>
        <source>样本号：</source>
        <translation>Sample:</translation>
    </message>
    <message>
        <source>科室：</source>
        <translation>Dept.:</translation>
    </message>
    <message>
        <source>床号：</source>
        <translation>Bed:</translation>
    </message>
    <message>
        <source>送检医生：</source>
        <translation>Physician:</translation>
    </message>
    <message>
        <source>样本类型：</source>
        <translation>Specimen:</translation>
    </message>
    <message>
        <source>临床诊断：</source>
        <translation>Diagnosis:</translation>
    </message>
    <message>
        <source>采样时间：</source>
        <translation>Collected:</translation>
    </message>
    <message>
        <source>接收时间：</source>
        <translation>Received:</translation>
    </message>
    <message>
        <source>报告时间：</source>
        <translation>Reported:</translation>
    </message>
    <message>
        <source>质控样本检验报告单</source>
        <translation>QC Sample Test Report</translation>
    </message>
    <message>
        <source>质控品：</source>
        <translation>Control:</translation>
    </message>
    <message>
        <source>质控文件号：</source>
        <translation>QC file no.:</translation>
    </message>
    <message>
        <source>检验科室：</source>
        <translation>Lab:</translation>
    </message>
    <message>
        <source>测定时间：</source>
        <translation>Measured:</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>时间</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>质控品名称：</source>
        <translation>Control:</translation>
    </message>
    <message>
        <source>批号：</source>
        <translation>Lot:</translation>
    </message>
    <message>
        <source>水平：</source>
        <translation>Level:</translation>
    </message>
    <message>
        <source>检测项目：</source>
        <translation>Assay:</translation>
    </message>
    <message>
        <source>缩写：</source>
        <translation>Abbr.:</translation>
    </message>
    <message>
        <source>单位：</source>
        <translation>Unit:</translation>
    </message>
    <message>
        <source>生产厂家：</source>
        <translation>Maker:</translation>
    </message>
    <message>
        <source>有效期：</source>
        <translation>Expiry:</translation>
    </message>
    <message>
        <source>质控图</source>
        <translation>QC chart</translation>
    </message>
    <message>
        <source>质控结果</source>
        <translation>QC results</translation>
    </message>
    <message>
        <source>统计信息</source>
        <translation>Statistics</translation>
    </message>
</context>
<context>
    <name>coagulation::TemplateCheck</name>
    <message>
        <source>无法读取文件</source>
        <translation>The file cannot be read</translation>
    </message>
    <message>
        <source>文件不存在</source>
        <translation>The file does not exist</translation>
    </message>
    <message>
        <source>分辨率无效: %1 x %2 dpi</source>
        <translation>Invalid resolution: %1 x %2 dpi</translation>
    </message>
    <message>
        <source>纸张尺寸无效: %1 x %2 mm</source>
        <translation>Invalid page size: %1 x %2 mm</translation>
    </message>
    <message>
        <source>文件在项目数之前结束</source>
        <translation>The file ends before the item count</translation>
    </message>
    <message>
        <source>项目数无效: %1</source>
        <translation>Invalid item count: %1</translation>
    </message>
    <message>
        <source>内容已损坏</source>
        <translation>its contents are damaged</translation>
    </message>
    <message>
        <source>文件在第 %1 个项目处被截断 (共 %2 个项目)</source>
        <translation>The file is cut short at item %1 (of %2)</translation>
    </message>
    <message>
        <source>文件在第 %1 个项目 (%2) 中结束, 或该项目已损坏 (共 %3 个项目)</source>
        <translation>The file ends within item %1 (%2), or that item is damaged (of %3)</translation>
    </message>
    <message>
        <source>第 %1 个项目: %2</source>
        <translation>Item %1: %2</translation>
    </message>
    <message>
        <source>第 %1 个项目 (%2): %3</source>
        <translation>Item %1 (%2): %3</translation>
    </message>
    <message>
        <source>第 %1 个项目 (%2) 的内容已损坏</source>
        <translation>The contents of item %1 (%2) are damaged</translation>
    </message>
    <message>
        <source>最后一个项目之后还有 %1 字节多余的数据</source>
        <translation>%1 bytes of extra data follow the last item</translation>
    </message>
</context>
<context>
    <name>coagulation::TemplateLimits</name>
    <message>
        <source>模板超出限制：%1不能超过 %2。</source>
        <translation>The template exceeds a limit: %1 cannot exceed %2.</translation>
    </message>
    <message>
        <source>模板中的项目数</source>
        <translation>the number of items in a template</translation>
    </message>
    <message>
        <source>一个表格的单元格数</source>
        <translation>the number of cells of one table</translation>
    </message>
    <message>
        <source>模板中所有表格的单元格数</source>
        <translation>the number of cells of all tables in a template</translation>
    </message>
    <message>
        <source>一个表格的列数</source>
        <translation>the number of columns of one table</translation>
    </message>
    <message>
        <source>多列表格的列块数</source>
        <translation>the number of blocks of a multi-column table</translation>
    </message>
    <message>
        <source>一张图片的像素数</source>
        <translation>the number of pixels of one picture</translation>
    </message>
    <message>
        <source>模板中所有图片的像素数</source>
        <translation>the number of pixels of all pictures in a template</translation>
    </message>
    <message>
        <source>一段文字的字符数</source>
        <translation>the number of characters of one text</translation>
    </message>
    <message>
        <source>模板中所有文字的字符数</source>
        <translation>the number of characters of all texts in a template</translation>
    </message>
    <message>
        <source>渐变的色标数</source>
        <translation>the number of stops of a gradient</translation>
    </message>
    <message>
        <source>HTML 单元格的跨行或跨列数</source>
        <translation>the row or column span of an HTML cell</translation>
    </message>
    <message>
        <source>HTML 元素的嵌套层数</source>
        <translation>the nesting depth of HTML elements</translation>
    </message>
    <message>
        <source>HTML 表格的嵌套层数</source>
        <translation>the nesting depth of HTML tables</translation>
    </message>
</context>
<context>
    <name>coagulation::TemplatePreview</name>
    <message>
        <source>没有可用的工作区</source>
        <translation>No workspace available</translation>
    </message>
    <message>
        <source>未知的报表类型</source>
        <translation>Unknown report type</translation>
    </message>
    <message>
        <source>找不到打印插件
%1</source>
        <translation>The print plug-in was not found
%1</translation>
    </message>
    <message>
        <source>打印插件无法创建打印机</source>
        <translation>The print plug-in cannot create a printer</translation>
    </message>
    <message>
        <source>工作区中没有病人结果</source>
        <translation>The workspace holds no patient results</translation>
    </message>
    <message>
        <source>工作区中没有维护记录</source>
        <translation>The workspace holds no maintenance records</translation>
    </message>
    <message>
        <source>所选质控品在所选日期内没有质控数据</source>
        <translation>The chosen controls have no QC results in the chosen dates</translation>
    </message>
</context>
<context>
    <name>coagulation::TextCreator</name>
    <message>
        <source>文本</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>coagulation::ToolArguments</name>
    <message>
        <source>文件</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>工作区的配置文件 (INI 文件)</source>
        <translation>the workspace&apos;s profile (INI file)</translation>
    </message>
    <message>
        <source>文件夹</source>
        <translation>FOLDER</translation>
    </message>
    <message>
        <source>模板文件夹 (默认: 配置中的 &quot;report/templateDirectory&quot;, 否则为配置文件旁的 &quot;templates&quot;)</source>
        <translation>template folder (default: the profile&apos;s &quot;report/templateDirectory&quot;, else &quot;templates&quot; beside it)</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>用此模板代替记住的模板打印 (不会记住)</source>
        <translation>print with this template instead of the remembered one (the choice is not remembered)</translation>
    </message>
    <message>
        <source>写出 PDF 文件, 而不是在默认打印机上打印</source>
        <translation>write a PDF file instead of printing on the default printer</translation>
    </message>
    <message>
        <source>先在打印对话框中选择打印机</source>
        <translation>choose the printer in a print dialog first</translation>
    </message>
    <message>
        <source>显示打印预览, 可从中打印</source>
        <translation>show a print preview, from which one can print</translation>
    </message>
    <message>
        <source>页面内容超出模板给它的位置时任务失败, 什么也不打印 (否则只是警告)</source>
        <translation>fail, printing nothing, when a page&apos;s content outgrows the room its template gives it (otherwise that is a warning)</translation>
    </message>
    <message>
        <source>把 PDF 写成 PDF/A-1b 以便归档 (只对本次运行; 配置中 &quot;report/pdfa&quot; = true 时为默认)</source>
        <translation>write the PDF as PDF/A-1b, for archiving (for this run; the profile&apos;s &quot;report/pdfa&quot; = true makes it the default)</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>DATE</translation>
    </message>
    <message>
        <source>只包括此日期起测定的结果 (yyyy-MM-dd)</source>
        <translation>only results measured on or after this date (yyyy-MM-dd)</translation>
    </message>
    <message>
        <source>只包括此日期止测定的结果 (yyyy-MM-dd)</source>
        <translation>only results measured on or before this date (yyyy-MM-dd)</translation>
    </message>
    <message>
        <source>月份</source>
        <translation>MONTH</translation>
    </message>
    <message>
        <source>月份, yyyy-MM (必需)</source>
        <translation>the month, yyyy-MM (required)</translation>
    </message>
    <message>
        <source>编号</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>工作台 (默认: 第一个)</source>
        <translation>the workbench (default: the first one)</translation>
    </message>
    <message>
        <source>数量</source>
        <translation>COUNT</translation>
    </message>
    <message>
        <source>生成的病人样本数 (默认 200)</source>
        <translation>number of patient samples to generate (default 200)</translation>
    </message>
    <message>
        <source>复制默认模板的来源文件夹</source>
        <translation>where the default templates are copied from</translation>
    </message>
    <message>
        <source>文件夹不为空时也写入 (替换其中的数据库, 配置和模板)</source>
        <translation>write into a folder that is not empty (replacing its databases, profile and templates)</translation>
    </message>
    <message>
        <source>语言</source>
        <translation>LANGUAGE</translation>
    </message>
    <message>
        <source>界面, 报告以及演示模板和数据的语言: zh_CN (默认) 或 en (默认取自 LANGUAGE, LC_ALL 或 LANG)</source>
        <translation>the language of messages, reports and the demo&apos;s templates and data: zh_CN (the default) or en (default: LANGUAGE, LC_ALL or LANG)</translation>
    </message>
    <message>
        <source>显示帮助</source>
        <translation>show this help</translation>
    </message>
    <message>
        <source>显示版本</source>
        <translation>show the version</translation>
    </message>
    <message>
        <source>病人编号...</source>
        <translation>PATIENT-ID...</translation>
    </message>
    <message>
        <source>按病人编号打印病人结果报告</source>
        <translation>patient result reports by patient id</translation>
    </message>
    <message>
        <source>按病人编号 (&quot;patient&quot; 表的 id) 打印病人结果报告, 每位病人一页.</source>
        <translation>Prints patient result reports by patient id (ids of the &quot;patient&quot; table), one page per patient.</translation>
    </message>
    <message>
        <source>样本号...</source>
        <translation>SAMPLE-NO...</translation>
    </message>
    <message>
        <source>按样本号打印病人结果报告</source>
        <translation>patient result reports by sample number</translation>
    </message>
    <message>
        <source>按样本号打印病人结果报告, 取该样本号最新的样本, 每个样本一页.</source>
        <translation>Prints patient result reports by sample number (the latest sample with that number), one page per sample.</translation>
    </message>
    <message>
        <source>[试剂编号...]</source>
        <translation>[REAGENT-ID...]</translation>
    </message>
    <message>
        <source>打印质控报告</source>
        <translation>QC report</translation>
    </message>
    <message>
        <source>打印质控报告, 每个试剂一个序列 (未给出时为全部试剂), 每个序列从新的一页开始.</source>
        <translation>Prints a QC report, one series per reagent (all reagents when none is given), each series starting on a new sheet.</translation>
    </message>
    <message>
        <source>打印一个月的维护记录报告</source>
        <translation>maintenance record report of one month</translation>
    </message>
    <message>
        <source>打印一个月 (--month) 的维护记录报告, 总是一页.</source>
        <translation>Prints the maintenance record report of one month (--month), always one page.</translation>
    </message>
    <message>
        <source>列出模板</source>
        <translation>lists the templates</translation>
    </message>
    <message>
        <source>列出每种报告类型的模板和配置中记住的模板.</source>
        <translation>Lists the templates of each report type and the ones remembered in the profile.</translation>
    </message>
    <message>
        <source>[模板文件...]</source>
        <translation>[TEMPLATE...]</translation>
    </message>
    <message>
        <source>检查模板是否完整</source>
        <translation>checks that templates are complete</translation>
    </message>
    <message>
        <source>检查模板文件是否完整可读: 文件头可用, 每个项目都能读出, 文件在最后一个项目处结束. 未给出文件时检查工作区模板文件夹中的全部模板. 有模板损坏时退出状态为 1.</source>
        <translation>Checks that template files can be read completely: a usable header, every item readable, the file ending with the last item. Without files, every template in the workspace&apos;s template folder is checked. The exit status is 1 when a template is damaged.</translation>
    </message>
    <message>
        <source>建立演示工作区</source>
        <translation>creates a demo workspace</translation>
    </message>
    <message>
        <source>在文件夹中建立演示工作区: profile.ini, 用生成的实验室数据填充的三个数据库, templates 中的默认模板, 以及配置中的模板选择. 文件夹不为空时需要 --force.</source>
        <translation>Creates a demo workspace in the folder: profile.ini, the three databases with generated laboratory data, the default templates in templates, and the template choices in the profile. A folder that is not empty needs --force.</translation>
    </message>
    <message>
        <source>用法: %1 [选项]</source>
        <translation>Usage: %1 [OPTIONS]</translation>
    </message>
    <message>
        <source>选项:</source>
        <translation>Options:</translation>
    </message>
    <message>
        <source>用法: %1 命令 [参数] [选项]</source>
        <translation>Usage: %1 COMMAND [ARGUMENTS] [OPTIONS]</translation>
    </message>
    <message>
        <source>像主程序一样通过报表插件打印分析仪的报告: 按接口标识找到插件, 用配置文件建立工作区, 使用配置中记住的模板.</source>
        <translation>Prints the analyser&apos;s reports through the report plug-in the way the host application does: the plug-in is found by its interface id, its printer gets a workspace made from the profile, and the templates remembered in the profile are used.</translation>
    </message>
    <message>
        <source>命令:</source>
        <translation>Commands:</translation>
    </message>
    <message>
        <source>&quot;%1 命令 --help&quot; 显示该命令的选项.</source>
        <translation>&quot;%1 COMMAND --help&quot; shows that command&apos;s options.</translation>
    </message>
    <message>
        <source>没有 --output, --dialog 或 --preview 时报告送到默认打印机. 不显示对话框或预览时, 报表模块的消息写到标准错误输出.</source>
        <translation>Without --output, --dialog or --preview the reports go to the default printer. Messages of the report module go to stderr unless a dialog or preview is shown.</translation>
    </message>
    <message>
        <source>退出状态: 0 成功, 1 任务失败 (数据或模板缺失或损坏, 打印失败, 什么也没有记录), 2 参数错误.</source>
        <translation>Exit status: 0 success, 1 the job failed (data or template missing or damaged, printing failed; nothing was recorded), 2 wrong arguments.</translation>
    </message>
    <message>
        <source>示例:</source>
        <translation>Examples:</translation>
    </message>
    <message>
        <source>&apos;%1&apos; 不是%2编号 (正整数)</source>
        <translation>&apos;%1&apos; is not a %2 id (a positive whole number)</translation>
    </message>
    <message>
        <source>--%1 &apos;%2&apos; 不是 yyyy-MM-dd 格式的日期</source>
        <translation>--%1 &apos;%2&apos; is not a date of the form yyyy-MM-dd</translation>
    </message>
    <message>
        <source>未知的选项 &apos;%1&apos;</source>
        <translation>Unknown option &apos;%1&apos;</translation>
    </message>
    <message>
        <source>选项 %1 需要一个值</source>
        <translation>The option %1 needs a value</translation>
    </message>
    <message>
        <source>选项 %1 不带值</source>
        <translation>The option %1 takes no value</translation>
    </message>
    <message>
        <source>无法解析命令行</source>
        <translation>Cannot read the command line</translation>
    </message>
    <message>
        <source>--language &apos;%1&apos; 不是 zh_CN 或 en</source>
        <translation>--language &apos;%1&apos; is not one of zh_CN and en</translation>
    </message>
    <message>
        <source>没有给出命令</source>
        <translation>No command given</translation>
    </message>
    <message>
        <source>未知的命令 &apos;%1&apos;</source>
        <translation>Unknown command &apos;%1&apos;</translation>
    </message>
    <message>
        <source>选项 --%1 不适用于命令 &apos;%2&apos;</source>
        <translation>--%1 does not apply to the command &apos;%2&apos;</translation>
    </message>
    <message>
        <source>只能给出 --output, --dialog 和 --preview 中的一个</source>
        <translation>Give only one of --output, --dialog and --preview</translation>
    </message>
    <message>
        <source>--output 需要文件名</source>
        <translation>--output needs a file name</translation>
    </message>
    <message>
        <source>命令 &apos;%1&apos; 需要配置文件 (--profile 文件)</source>
        <translation>The command &apos;%1&apos; needs a profile (--profile FILE)</translation>
    </message>
    <message>
        <source>至少给出一个病人编号</source>
        <translation>Give at least one patient id</translation>
    </message>
    <message>
        <source>病人</source>
        <translation>patient</translation>
    </message>
    <message>
        <source>至少给出一个样本号</source>
        <translation>Give at least one sample number</translation>
    </message>
    <message>
        <source>试剂</source>
        <translation>reagent</translation>
    </message>
    <message>
        <source>--from %1 晚于 --to %2</source>
        <translation>--from %1 lies after --to %2</translation>
    </message>
    <message>
        <source>命令 &apos;maintenance&apos; 不带参数; 请用 --month</source>
        <translation>The command &apos;maintenance&apos; takes no arguments; use --month</translation>
    </message>
    <message>
        <source>命令 &apos;maintenance&apos; 需要 --month yyyy-MM</source>
        <translation>The command &apos;maintenance&apos; needs --month yyyy-MM</translation>
    </message>
    <message>
        <source>--month &apos;%1&apos; 不是 yyyy-MM 格式的月份</source>
        <translation>--month &apos;%1&apos; is not a month of the form yyyy-MM</translation>
    </message>
    <message>
        <source>--workbench &apos;%1&apos; 不是工作台编号</source>
        <translation>--workbench &apos;%1&apos; is not a workbench id</translation>
    </message>
    <message>
        <source>命令 &apos;templates&apos; 不带参数</source>
        <translation>The command &apos;templates&apos; takes no arguments</translation>
    </message>
    <message>
        <source>命令 &apos;check&apos; 需要模板文件, 或者配置文件 (--profile 文件) 或模板文件夹 (--template-dir)</source>
        <translation>The command &apos;check&apos; needs template files, a profile (--profile FILE) or a template folder (--template-dir)</translation>
    </message>
    <message>
        <source>命令 &apos;demo&apos; 需要且只需要一个文件夹</source>
        <translation>The command &apos;demo&apos; needs exactly one folder</translation>
    </message>
    <message>
        <source>--patients &apos;%1&apos; 不是 1 到 100000 之间的数</source>
        <translation>--patients &apos;%1&apos; is not a count from 1 to 100000</translation>
    </message>
</context>
<context>
    <name>coagulation::ToolPalette</name>
    <message>
        <source>基本工具</source>
        <translation>Basic tools</translation>
    </message>
</context>
</TS>
