#pragma once

#include <string_view>

namespace brackwater::inspect {

/// Pixels of the drawing beside the table on a landscape page of A4 within its margins, before it is scaled down to
/// kPaperZoom: the table's columns take the rest.
inline constexpr double kPaperChart = 880;

/// The width of the column of IDs stands in the page's own "--ids", the chart's least width in "--least".
inline constexpr std::string_view kGanttStyle = R"css(
@page{size:A4 landscape;margin:10mm 10mm 13mm;
 @bottom-right{content:"Page " counter(page) " of " counter(pages);font:7.5pt sans-serif;color:#55616e}}
:root{--ink:#1f2933;--soft:#55616e;--line:#d3d9df;--faint:#e9edf1;--free:#eff2f5;--bar:#86b0e2;--edge:#3f78bd;
 --done:#2f68ad;--late:#eba29a;--late-edge:#c03d30;--late-done:#b02a1e;--summary:#2f3944;--milestone:#7d3f94;
 --baseline:#bf9b36;--link:#6f7c8a;--today:#00857d;--dead:#1f2933;
 --names:calc(220px - var(--ids));--table:426px}
*{box-sizing:border-box}
body{margin:24px;color:var(--ink);background:#fff;font:12px/1.35 "Segoe UI",Roboto,"Helvetica Neue",
 "Liberation Sans",Arial,"Noto Sans",system-ui,sans-serif;-webkit-print-color-adjust:exact;print-color-adjust:exact}
h1{margin:0 0 2px;font-size:22px;font-weight:600;letter-spacing:-.01em;overflow-wrap:anywhere}
h2{margin:28px 0 8px;font-size:15px;font-weight:600}
.facts{margin:0 0 12px;color:var(--soft)}
.legend{display:flex;flex-wrap:wrap;gap:4px 20px;margin:0 0 14px;padding:0;list-style:none;color:var(--soft)}
.legend li{display:flex;align-items:center;gap:7px}
.legend svg{width:28px;height:20px}
.legend .free{fill:var(--free);stroke:var(--line)}
.defs{position:absolute;width:0;height:0}
.chart{width:100%;border-spacing:0}
.chart>thead>tr>th{position:sticky;top:0;z-index:3;padding:0;text-align:left;font-weight:400}
.chart>tbody>tr>td{position:relative;padding:0;border:1px solid var(--line);border-top:0}
.row{display:flex;height:22px;line-height:21px;border-bottom:1px solid var(--faint);list-style:none}
.row>*{flex:none;overflow:hidden;white-space:nowrap;background:#fff;position:relative}
.row>.id,.row>.num{width:var(--ids);padding-right:7px;text-align:right;font-variant-numeric:tabular-nums}
.row>.id{position:sticky;left:0;z-index:2;color:var(--soft)}
.row>.name{position:sticky;left:var(--ids);z-index:2;width:var(--names);display:flex;align-items:center;
 padding:0 6px 0 calc(6px + 12px*var(--depth,0));border-right:1px solid transparent}
.rows .id,.rows .name{height:22px;margin-bottom:-1px;border-bottom:1px solid var(--faint)}
.row>.date{width:74px;padding:0 6px;font-variant-numeric:tabular-nums}
.row>.num{width:58px}
.row>.done{display:none}
.row>svg{flex:1 0 var(--least);height:22px;margin-bottom:-1px;background:none;border-left:1px solid var(--line)}
.name bdi{overflow:hidden;text-overflow:ellipsis}
.name::before{content:"";flex:none;width:12px}
summary{cursor:pointer;font-weight:600}
summary .date,summary .num,summary .id{font-weight:400}
summary .name::before{width:0;height:0;margin-right:5px;border:3.5px solid transparent;border-top:5px solid var(--soft);
 border-bottom:0}
details:not([open])>summary .name::before{border:3.5px solid transparent;border-left:5px solid var(--soft);border-right:0;
 margin-right:7px}
.row:hover>*{background:#eef4fb}
.row:hover>svg{background:#d6e6f866}
summary:focus-visible{outline:2px solid var(--edge);outline-offset:-2px}
.noted .name::after{content:"";flex:none;width:8px;height:9px;margin-left:6px;border:1px solid var(--soft);
 border-radius:1px;background:linear-gradient(var(--soft),var(--soft)) 1px 2px/4px 1px no-repeat,
 linear-gradient(var(--soft),var(--soft)) 1px 4px/4px 1px no-repeat}
.head.row{height:40px;line-height:16px;border:1px solid var(--line)}
.head.row>*{padding-top:20px;color:var(--soft);font-weight:600;background:#fff}
.head.row>.name{padding-left:18px}
.head.row>.name::before{display:none}
.head.row>svg{height:38px;padding:0;margin:0}
.head .plan{display:none}
.back{position:absolute;top:0;bottom:0;right:0;left:var(--table);border-left:1px solid transparent}
.back>*{position:absolute;top:0;bottom:0}
.back i{background:var(--free)}
.back b{width:1px;background:var(--line)}
.back .now{width:2px;background:var(--today)}
svg{fill:var(--summary)}
.axis .now{fill:var(--today)}
svg text{font-size:10.5px;font-weight:400;fill:var(--soft)}
.row>svg>text{paint-order:stroke;stroke:#fff;stroke-width:3px}
.w{text-anchor:end}
.axis rect{fill:var(--line)}
.axis text{text-anchor:middle}
.axis .up{font-size:11.5px;font-weight:600;fill:var(--ink);text-anchor:start}
.axis.paper{display:none}
svg[viewBox]{fill:none;stroke:var(--link)}
svg[viewBox] path{vector-effect:non-scaling-stroke;shape-rendering:crispEdges}
svg[viewBox] .x{stroke:var(--late-edge)}
.b{fill:var(--bar);stroke:var(--edge);stroke-width:.8}
.p{fill:var(--done)}
.b.x{fill:var(--late);stroke:var(--late-edge)}
.p.x{fill:var(--late-done)}
.a{fill:var(--baseline)}
.gap{stroke:var(--edge);stroke-dasharray:2 2}
.now{fill:var(--today)}
.dead{fill:var(--dead)}
use{fill:var(--link)}
use[href="#m"]{fill:var(--milestone)}
use[href="#e"],use[href="#f"]{fill:var(--summary)}
use.x{fill:var(--late-edge)}
.list{border-collapse:collapse}
.list th,.list td{padding:3px 16px 3px 0;border-bottom:1px solid var(--faint);text-align:left;vertical-align:top}
.list th{color:var(--soft);border-bottom-color:var(--line);font-weight:600}
.note{white-space:pre-line;max-width:70em;overflow-wrap:anywhere}
.none{color:var(--soft)}
footer{margin-top:20px;color:var(--soft);font-size:11px}
@media screen and (min-width:1500px){
 :root{--names:calc(272px - var(--ids));--table:528px}
 .row>.done{display:block;width:50px}
}
@media screen and (max-width:1279px){
 :root{--table:368px}
 .row>.num{display:none}
}
@media screen and (max-width:1119px){
 :root{--names:calc(33vw - var(--ids));--table:33vw}
 .row>.date{display:none}
}
@media screen and (max-width:699px){
 :root{--names:33vw}
 body{margin:8px}
 .row>.id{display:none}
 .row>.name{left:0;padding:0 3px 0 calc(3px + 6px*var(--depth,0));font-size:10px;line-height:10.5px}
 .name bdi{display:-webkit-box;-webkit-box-orient:vertical;-webkit-line-clamp:2;white-space:normal;overflow-wrap:anywhere}
 .name::before{width:5px}
 .head.row>.name{padding-left:8px;font-size:12px;line-height:16px}
}
@media print{
 :root{--names:calc(220px - var(--ids))}
 body{margin:0}
 .chart{zoom:.8}
 .chart>thead>tr>th{position:static}
 .chart>tbody>tr>td{padding-left:var(--table);background:var(--paper);background-origin:content-box}
 .rows{margin-left:calc(-1*var(--table))}
 .back{display:none}
 .row>*{background:none}
 .noted .name::after{background:none;border-top-width:4px}
 .row{break-inside:avoid}
 .row>svg{flex-basis:0}
 svg text,.axis .up{font-size:12px}
 .axis.screen{display:none}
 .axis.paper{display:block}
 .head .plan{display:block;position:absolute;top:2px;left:6px;color:var(--ink)}
 .list tr{break-inside:avoid}
 h2{break-after:avoid}
 footer{font-size:12px}
}
)css";

} // namespace brackwater::inspect
