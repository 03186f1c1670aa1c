#pragma once

#include <string_view>

namespace brackwater::inspect {

inline constexpr int kRowHeight = 22, kHeadHeight = 40, kTableWidth = 730;

/// Lengths that depend on the plan stand in the page's own "--chart", "--zoom".
inline constexpr std::string_view kGanttStyle = R"css(
:root{--ink:#1f2933;--soft:#616e7c;--line:#d9dee4;--faint:#eef1f4;--free:#f0f2f5;--bar:#8db4e2;--done:#2f6cb3;
 --summary:#39434e;--milestone:#8a4b9e;--baseline:#c2a24a;--link:#6b7785}
*{box-sizing:border-box}
body{margin:24px;color:var(--ink);background:#fff;font:12px/1.35 "Segoe UI",Roboto,"Helvetica Neue",
 "Liberation Sans",Arial,"Noto Sans",system-ui,sans-serif;-webkit-print-color-adjust:exact;print-color-adjust:exact}
h1{margin:0 0 2px;font-size:22px;font-weight:600;letter-spacing:-.01em}
h2{margin:28px 0 8px;font-size:15px;font-weight:600}
.facts{margin:0 0 12px;color:var(--soft)}
.legend{display:flex;flex-wrap:wrap;gap:4px 20px;margin:0 0 14px;padding:0;list-style:none;color:var(--soft)}
.legend li{display:flex;align-items:center;gap:7px}
.chart{width:max-content;border:1px solid var(--line)}
.sheet{position:relative}
.part{display:flex}
.head{position:sticky;top:0;z-index:2;background:#fff}
.sheet .head{display:none}
table.tasks{width:730px;table-layout:fixed;border-collapse:collapse;flex:none;border-right:1px solid var(--line)}
table.tasks th,table.tasks td{padding:0 7px;overflow:hidden;white-space:nowrap;text-overflow:ellipsis;text-align:left;
 font-weight:400}
table.tasks td{height:22px;line-height:21px;border-bottom:1px solid var(--faint)}
table.tasks th{height:40px;padding-bottom:5px;vertical-align:bottom;border-bottom:1px solid var(--line);color:var(--soft);
 font-weight:600}
table.tasks .n{text-align:right;font-variant-numeric:tabular-nums}
table.tasks .d{font-variant-numeric:tabular-nums}
table.tasks .s .t{font-weight:600}
table.tasks .r{color:var(--soft)}
svg{display:block;flex:none;overflow:visible}
svg.defs{position:absolute;width:0;height:0}
svg.clip{overflow:hidden}
.draw{position:relative;flex:none}
svg.front{position:absolute;left:0;top:0;z-index:1}
.axis text{font-size:10.5px;fill:var(--soft)}
.axis .u{font-size:11.5px;font-weight:600;fill:var(--ink)}
.axis path{stroke:var(--line);fill:none}
.rows{stroke:var(--faint)}
.free{fill:var(--free)}
.today{stroke:#c8382f;stroke-width:2}
.grid{stroke:var(--line)}
.bar{fill:var(--bar)}
.bd{fill:var(--done)}
.sum{fill:var(--summary)}
.mile{fill:var(--milestone)}
.base{fill:var(--baseline)}
.link{fill:none;stroke:var(--link);stroke-width:1.1}
.late{display:none}
table.list{border-collapse:collapse}
table.list th,table.list td{padding:3px 16px 3px 0;border-bottom:1px solid var(--faint);text-align:left;vertical-align:top}
table.list th{color:var(--soft);border-bottom-color:var(--line);font-weight:600}
.none{color:var(--soft)}
footer{margin-top:20px;color:var(--soft);font-size:11px}
@media print{
 body{margin:0;zoom:var(--zoom)}
 .chart{border:0}
 .chart>.head{display:none}
 .sheet{break-inside:avoid;overflow:hidden;border:1px solid var(--line);margin-bottom:14px}
 .sheet .head{display:flex;position:static}
 .sheet svg{overflow:hidden}
 .late{display:inline}
 table.list tr{break-inside:avoid}
 h2{break-after:avoid}
}
)css";

} // namespace brackwater::inspect
