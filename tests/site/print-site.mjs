// Prints a site as PDF and checks it: the single page of the set, printed by Chromium, is tagged, its outline has the
// pages of the contents in their order and nesting, nothing is outside of the pages or cut at their edge, and no
// heading is alone at the foot of a page.
// usage: node print-site.mjs TAVIDOC-SITE SITE.TOML [OUT.pdf]
import assert from "node:assert/strict";
import {execFileSync} from "node:child_process";
import {mkdtempSync, readFileSync, rmSync, writeFileSync} from "node:fs";
import {tmpdir} from "node:os";
import {join, resolve} from "node:path";
import {chromium} from "./browser.mjs";
import {tooWide} from "./page_checks.mjs";

const [program, project, output] = process.argv.slice(2);
const work = mkdtempSync(join(tmpdir(), "print-"));
const page = join(work, "site.htm"), pdf = output ? resolve(output) : join(work, "site.pdf");
const millimetres = 25.4, points = 72, a4 = {width: 210, height: 297}, margins = {left: 19, right: 19};

const headings = `[...document.querySelectorAll("h1, h2, h3, h4, h5, h6")].map(heading => ({
  level: Number(heading.tagName[1]), text: heading.textContent.replace(/\\s+/g, " ").trim(),
  page: heading.parentElement.tagName === "SECTION" && heading.parentElement.querySelector("h1, h2, h3, h4, h5, h6") === heading
    ? heading.parentElement.id : undefined}))`;

const run = (command, ...options) =>
  execFileSync(command, options, {encoding: "utf8", maxBuffer: 1 << 28, stdio: ["ignore", "pipe", "ignore"]});

const plain = text => text.replaceAll("&lt;", "<").replaceAll("&gt;", ">").replaceAll("&quot;", '"')
  .replaceAll(/&#(\d+);/g, (_, number) => String.fromCodePoint(number)).replaceAll("&amp;", "&").replaceAll(/\s+/g, " ").trim();

// The entries of the outline with their depths.
function outlineOf(xml) {
  const entries = [];
  let depth = 0;
  for (const [tag, item] of xml.slice(xml.indexOf("<outline>")).matchAll(/<\/?outline>|<item[^>]*>([^<]*)<\/item>/g)) {
    if (item !== undefined)
      entries.push({level: depth, text: plain(item)});
    else
      depth += tag === "<outline>" ? 1 : -1;
  }
  return entries;
}

// The depth that an outline shows for a level: no entry is deeper than one below the entry above it.
function nested(list) {
  const open = [];
  return list.map(({level, text}) => {
    while (open.length && open.at(-1) >= level)
      open.pop();
    open.push(level);
    return {level: open.length, text};
  });
}

// Checks that all text after the title page is between the margins, and the number of each page at its foot.
function checkText(boxes, count) {
  const [low, high] = [margins.left - 1, a4.width - margins.right + 1].map(edge => edge / millimetres * points);
  for (const [index, sheet] of boxes.split("<page ").slice(2).entries()) {
    const place = `page ${index + 2} of ${count}`;
    const height = Number(/height="([\d.]+)"/.exec(sheet)[1]);
    const lines = [...sheet.matchAll(/<line xMin="([\d.-]+)" yMin="([\d.-]+)" xMax="([\d.-]+)" yMax="([\d.-]+)">([^]*?)<\/line>/g)]
      .map(([, left, top, right, bottom, words]) => ({left: Number(left), top: Number(top), right: Number(right),
        bottom: Number(bottom), text: plain([...words.matchAll(/>([^<]+)<\/word>/g)].map(word => word[1]).join(" "))}));
    for (const line of lines) {
      assert.ok(line.left >= low && line.right <= high && line.top >= 0 && line.bottom <= height,
        `${place}: outside of the text: ${JSON.stringify(line)}`);
    }
    lines.sort((a, b) => a.bottom - b.bottom);
    assert.equal(lines.at(-1)?.text, String(index + 2), `${place}: its number is at the foot`);
    assert.ok(lines.length > 2, `${place}: has text`);
  }
}

// The pages that end with a heading: above the number of the page is a line of bold text that is a heading.
function loneHeadings(xml, texts) {
  return xml.split("<page ").slice(2).flatMap(sheet => {
    const lines = [...sheet.matchAll(/<text top="(\d+)"[^>]*>(.*)<\/text>/g)]
      .map(([, top, html]) => ({top: Number(top), isBold: /^(<b>[^]*<\/b>)$/.test(html), text: plain(html.replaceAll(/<[^>]*>/g, ""))}))
      .filter(line => line.text).sort((a, b) => a.top - b.top);
    const last = lines.at(-2);
    return last?.isBold && texts.has(last.text) ? [`${/number="(\d+)"/.exec(sheet)[1]}: ${last.text}`] : [];
  });
}

const browser = await chromium();
try {
  try {
    run(program, "single", project, "--exit-zero", "-o", page);
  } catch (error) {
    throw new Error(`tavidoc-site failed: ${error.message}`);
  }
  const width = Math.floor((a4.width - margins.left - margins.right) / millimetres * 96);
  await browser.setUp(width, {media: "print", script: true, theme: "dark"});
  await browser.goto(`file://${page}`);
  assert.deepEqual(await browser.evaluate(`(${tooWide})()`), [], "too wide for the paper");
  const expected = await browser.evaluate(headings);
  const ids = await browser.evaluate("[...document.querySelectorAll('[id]')].map(element => element.id)");
  assert.equal(new Set(ids).size, ids.length, "ids are unique");
  const pages = await browser.evaluate("document.querySelectorAll('main > section').length");
  assert.equal(expected.filter(heading => heading.page !== undefined).length, pages, "each page begins with its heading");
  const {data} = await browser.call("Page.printToPDF", {printBackground: true, generateTaggedPDF: true,
    generateDocumentOutline: true, paperWidth: a4.width / millimetres, paperHeight: a4.height / millimetres});
  writeFileSync(pdf, Buffer.from(data, "base64"));

  const info = run("pdfinfo", pdf);
  assert.match(info, /^Tagged:\s+yes$/m);
  const count = Number(/^Pages:\s+(\d+)$/m.exec(info)[1]);
  const xml = run("pdftohtml", "-xml", "-i", "-stdout", pdf);
  const outline = outlineOf(xml);
  assert.deepEqual(outline, nested(expected), "the outline has all headings");

  checkText(run("pdftotext", "-bbox-layout", pdf, "-"), count);
  assert.deepEqual(loneHeadings(xml, new Set(["Contents", ...expected.map(heading => heading.text)])), [], "headings at the foot of a page");
  console.log(`${pages} pages on ${count} sheets, ${outline.length} outline entries: tagged, numbered, nothing cut`);
} finally {
  await browser.close();
  rmSync(work, {recursive: true, force: true});
}
