#include "report/style.h"

namespace report {

// Marks differ in shape and lines in their dashes: a workshop printer has no colours. The colours
// themselves are dark enough on white, and light enough on black, to be read as text.
const char* const kStyle = R"(
:root {
  --paper: #fff; --ink: #14181d; --soft: #4c5660; --line: #9aa4ae; --band: #f0f3f6;
  --link: #0b4fa8; --in: #0b4fa8; --out: #0a6b3d; --over: #b34700; --plate: #e4e8ec;
  --kerf: #f3c27a; --error: #a80f1c; --warning: #8a4b00; --note: #4b3b9e; --target: #fff2b8;
}
@media screen and (prefers-color-scheme: dark) {
  :root {
    --paper: #14181d; --ink: #eef1f4; --soft: #b4bec8; --line: #66717c; --band: #1f262d;
    --link: #8fc0ff; --in: #8fc0ff; --out: #6fdc9f; --over: #ffb066; --plate: #3a444e;
    --kerf: #7a5a24; --error: #ff8f8f; --warning: #ffc06b; --note: #c3b5ff; --target: #4a4315;
  }
}
* { box-sizing: border-box; }
html { font: 18px/1.4 system-ui, Segoe UI, DejaVu Sans, Arial, sans-serif; }
body { margin: 0 auto; padding: 1rem 1.5rem 3rem; max-width: 76rem; background: var(--paper);
  color: var(--ink); }
a { color: var(--link); }
h1 { font-size: 2.4rem; margin: .5rem 0 0; }
h2 { font-size: 2rem; line-height: 1.15; margin: 2.2rem 0 .6rem; border-bottom: 3px solid var(--ink); }
h3 { font-size: 1.25rem; margin: 1rem 0 .3rem; overflow-wrap: anywhere; }
h2 { overflow-wrap: anywhere; }
header p, .back { color: var(--soft); margin: 0 0 1rem; }
small { font-size: .78em; font-weight: normal; color: var(--soft); }
:target { background: var(--target); scroll-margin-top: 1rem; }
.failure { border: 2px solid var(--error); padding: .5rem .8rem; font-weight: bold; }
.unseen { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%); }

nav { display: grid; gap: .4rem; background: var(--band); padding: .7rem 1rem; }
nav div { display: grid; grid-template-columns: 8rem 1fr; gap: .5rem; }
nav p { margin: 0; font-weight: bold; }
nav ul, .names { display: flex; flex-wrap: wrap; gap: .1rem 1.3rem; list-style: none; margin: 0;
  padding: 0; }
nav li, .names li { overflow-wrap: anywhere; }

.facts { display: grid; grid-template-columns: repeat(4, 1fr); gap: .35rem 1rem; margin: .4rem 0; }
.facts div { border-left: 4px solid var(--line); padding-left: .5rem; }
dt { font-size: .8rem; color: var(--soft); }
dd { margin: 0; font-size: 1.2rem; font-weight: bold; line-height: 1.2; overflow-wrap: anywhere; }

figure { margin: .8rem 0; }
.panels { display: grid; grid-template-columns: 2fr 2fr 1fr; gap: 1rem; }
.panels p { margin: 0 0 .2rem; font-size: .95rem; }
svg { display: block; width: 100%; height: auto; font-size: 15px; fill: var(--ink); }
.legend { display: flex; flex-wrap: wrap; gap: .1rem 1.4rem; }
figcaption { font-size: .85rem; color: var(--soft); }
figcaption p { margin: .2rem 0; }
.sample { white-space: nowrap; }
.sample svg { display: inline-block; width: 36px; height: 14px; margin-right: .35rem; }
.part { fill: var(--plate); stroke: none; }
.hole { fill: var(--paper); }
.kerf { fill: none; stroke: var(--kerf); stroke-width: 12; }
.wide { stroke-width: 18; }
.torch { fill: none; stroke: var(--ink); stroke-width: 2; }
.contour { stroke: var(--ink); stroke-width: 2; stroke-dasharray: 12 4 2 4; }
.torch.in { stroke: var(--in); stroke-width: 4; }
.torch.out { stroke: var(--out); stroke-width: 4; stroke-dasharray: 9 4; }
.torch.extension { stroke-dasharray: 2 4; }
.overrun { fill: none; stroke: var(--over); stroke-width: 7; stroke-dasharray: 3 1.5; }
.left-over { fill: none; stroke: var(--paper); stroke-width: 5; stroke-dasharray: 3 3; }
.dimension { fill: none; stroke: var(--ink); stroke-width: 1.2; }
.head { fill: var(--ink); }
.head.in { fill: var(--in); }
.head.out { fill: var(--out); }
.pierce { fill: var(--paper); stroke: var(--in); stroke-width: 3; }
.dot { fill: var(--in); }
.place { fill: var(--soft); font-style: italic; }
.length { font-weight: bold; }
.length.in { fill: var(--in); }
.length.out { fill: var(--out); }

.data { display: grid; grid-template-columns: minmax(20rem, 1fr) minmax(18rem, 1fr); gap: 1.5rem;
  align-items: start; }
table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
caption { text-align: left; font-weight: bold; padding: .2rem 0; overflow-wrap: anywhere; }
th, td { text-align: left; vertical-align: top; padding: .16rem .5rem;
  border-bottom: 1px solid var(--line); overflow-wrap: anywhere; }
thead th { border-bottom: 2px solid var(--ink); line-height: 1.15; vertical-align: bottom;
  overflow-wrap: normal; }
thead small { display: block; }
.figures th, .figures td, .number { text-align: right; white-space: nowrap; }
.figures thead th { white-space: normal; }
.list th { width: 27%; }
.list td:nth-child(2) { width: 38%; }
.directories .list { table-layout: fixed; }
.figures td.marks { text-align: left; }
.figures tbody { font-size: 1.1rem; }
.figures tbody tr:nth-child(even) { background: var(--band); }
span.found { white-space: nowrap; }
tr.found th { border-left: 5px double var(--note); }
.sizes { font-weight: bold; }
.overview th:first-child { width: 24%; }
.directories { display: grid; grid-template-columns: repeat(auto-fill, minmax(24rem, 1fr));
  gap: .5rem 2rem; align-items: start; }

.charts { position: sticky; top: .5rem; }
.chart { font-size: 15px; margin-bottom: .6rem; }
.grid { stroke: var(--line); stroke-width: .6; }
.axis { stroke: var(--ink); stroke-width: 2; }
.strong { font-weight: bold; }
.course { fill: none; stroke: var(--in); stroke-width: 2.2; }
.point { fill: var(--in); stroke: var(--paper); stroke-width: 1; }
.doubtful { fill: var(--paper); stroke: var(--over); stroke-width: 3; }
.mark { font-weight: bold; white-space: nowrap; text-decoration: none; font-size: 1rem; }
.mark.error { color: var(--error); }
.mark.warning { color: var(--warning); }
.mark.note { color: var(--note); }
.findings th { white-space: nowrap; }
.findings td:nth-child(2) { width: 28%; }

@media (max-width: 56rem) {
  .facts { grid-template-columns: repeat(2, 1fr); }
  .panels { grid-template-columns: 1fr 1fr; }
  .data { grid-template-columns: 1fr; }
  .directories { grid-template-columns: 1fr; }
}
@page { size: A4; margin: 12mm; }
@media print {
  html { font-size: 11pt; line-height: 1.3; }
  body { padding: 0; max-width: none; }
  .whole { break-before: page; }
  h2 { margin-top: 1.4rem; }
  .whole h2 { margin-top: 0; }
  h1, h2, h3, caption, thead { break-after: avoid; }
  tr, .facts, figure, .chart, .top, .directories .directory, .names li { break-inside: avoid; }
  .top { break-after: avoid; }
  .back { display: none; }
  .charts { position: static; }
  .part, .kerf, .figures tr, nav, .hole, .pierce { print-color-adjust: exact; }
  figure { margin: .5rem 0 .3rem; }
  .figures tbody { line-height: 1.15; }
  .data { grid-template-columns: 1.2fr 1fr; gap: .8rem; }
  .figures th, .figures td { padding: .14rem .25rem; }
  .facts { grid-template-columns: repeat(4, 1fr); gap: .2rem 1rem; }
  .panels { grid-template-columns: 2fr 2fr 1fr; }
  .directories { display: block; columns: 2; column-gap: 1.5rem; }
  .directory h3 { margin-top: .4rem; }
  a { color: inherit; text-decoration: none; }
}
)";

}  // namespace report
