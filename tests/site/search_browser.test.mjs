// Tests of the search field and the page of results in browsers, from files.
import assert from "node:assert/strict";
import {execFileSync} from "node:child_process";
import {copyFileSync, mkdirSync, mkdtempSync, rmSync, writeFileSync} from "node:fs";
import {tmpdir} from "node:os";
import {join} from "node:path";
import {after, before, describe, it} from "node:test";
import {setTimeout as delay} from "node:timers/promises";
import {pathToFileURL} from "node:url";
import {chromium, eventually as whenTrue, firefox, isInstalled} from "./browser.mjs";

const scripts = new URL("../../share/site/", import.meta.url);
const hostile = "</script><img src=x onerror=\"window.harmed=1\"> ' \\ \u2028";
const pages = [
  ["function", "tools::Buffer::push", "", "buffer.h", "sub/tools.Buffer.push.htm", "", "Appends to the buffer.", "More text."],
  ["function", "tools::Stack::push", "", "stack.h", "sub/tools.Stack.push.htm", "", "Puts on the stack.", ""],
  ["page", "", hostile, hostile, "p3.htm", "", "hostile " + hostile, hostile],
  ["page", "", "Reading", "Manual", "p4.htm", "", "", "word ".repeat(200) + "needle <b>in</b> hay " + "word ".repeat(100)],
];

const page = top => `<!DOCTYPE html><html lang="en"><head><meta charset="utf-8"><title>T</title>
<script src="${top}search.js" defer></script><script src="${top}search_box.js" defer></script></head><body>
<a id="link" href="#">A link</a> <textarea id="other"></textarea>
<form id="site-search-form" role="search" action="${top}search.htm"><input id="site-search" name="q" type="search"
aria-label="Search" autocomplete="off"><ul id="site-search-results" hidden></ul></form>
<p id="site-search-status" role="status"></p><ol id="site-search-page"></ol></body></html>`;

function makeSite() {
  const directory = mkdtempSync(join(tmpdir(), "site ä#-"));
  mkdirSync(join(directory, "search"));
  mkdirSync(join(directory, "sub"));
  execFileSync(process.env.WRITE_SEARCH_INDEX, [join(directory, "search")], {input: pages.map(row => row.join("\t")).join("\n")});
  for (const name of ["search.js", "search_box.js"])
    copyFileSync(new URL(name, scripts), join(directory, name));
  writeFileSync(join(directory, "search.htm"), page(""));
  for (const name of ["start.htm", "tools.Buffer.push.htm", "tools.Stack.push.htm"])
    writeFileSync(join(directory, "sub", name), page("../").replace(/<p id.*<\/ol>/, ""));
  return directory;
}

const results = `[...document.querySelectorAll("#site-search-results:not([hidden]) li")]`;

for (const [program, open] of [["chromium", chromium], ["firefox-esr", firefox]]) {
  describe(program, {skip: !isInstalled(program), timeout: 240_000}, () => {
    let browser, site, url;
    before(async () => {
      site = makeSite();
      url = name => String(pathToFileURL(join(site, name)));
      browser = await open();
    });
    after(async () => {
      await browser?.close();
      rmSync(site, {recursive: true});
    });

    // The value of an expression as soon as it is true. While the page changes, there is nothing to evaluate it in.
    async function eventually(expression) {
      const value = await whenTrue(() => browser.evaluate(expression).catch(() => false));
      assert.ok(value, expression);
      return value;
    }

    it("opens a result by keys alone and gives the focus back", async () => {
      await browser.goto(url("sub/start.htm"));
      await browser.evaluate(`document.getElementById("link").focus()`);
      await browser.press("/");
      assert.equal(await browser.evaluate("document.activeElement.id"), "site-search");
      await browser.type("push");
      await eventually(`${results}.length === 2`);
      const state = `[...["role", "aria-expanded", "aria-controls", "aria-activedescendant"].map(name =>
        document.activeElement.getAttribute(name)), document.querySelectorAll("[role=option][aria-selected=true]").length]`;
      assert.deepEqual(await browser.evaluate(state), ["combobox", "true", "site-search-results", null, 0]);
      await browser.press("ArrowDown");
      await browser.press("ArrowDown");
      assert.deepEqual(await browser.evaluate(state), ["combobox", "true", "site-search-results", "site-search-result-1", 1]);
      await browser.press("ArrowDown");
      assert.equal((await browser.evaluate(state))[3], null, "after the last comes the field");
      await browser.press("ArrowUp");
      assert.equal((await browser.evaluate(state))[3], "site-search-result-1");
      await browser.press("Escape");
      assert.deepEqual((await browser.evaluate(state)).slice(1, 4), ["false", "site-search-results", null]);
      await browser.press("Escape");
      assert.equal(await browser.evaluate("document.activeElement.id"), "link");
      await browser.press("k", true);
      await browser.type("push");
      await eventually(`${results}.length === 2`);
      await browser.press("ArrowDown");
      await browser.press("Enter");
      await eventually(`location.href.endsWith("sub/tools.Buffer.push.htm")`);
    });

    it("keeps its keys out of fields", async () => {
      await browser.goto(url("sub/start.htm"));
      await browser.evaluate(`document.getElementById("other").focus()`);
      await browser.type("/");
      assert.deepEqual(await browser.evaluate(`[document.activeElement.id, document.activeElement.value]`), ["other", "/"]);
    });

    it("shows title, kind, place and excerpt with marked hits, and owners of an ambiguous name", async () => {
      await browser.goto(url("search.htm") + "?q=push");
      const text = `[...document.querySelectorAll("#site-search-page li")].map(item => item.textContent)`;
      await eventually(`${text}.join().includes("Puts on")`);
      assert.deepEqual(await browser.evaluate(text), ["tools::Buffer::pushfunction \u00b7 buffer.hAppends to the buffer. More text.",
        "tools::Stack::pushfunction \u00b7 stack.hPuts on the stack. "]);
      await browser.goto(url("search.htm") + "?q=needle");
      await eventually(`document.querySelector(".excerpt mark")?.textContent === "needle"`);
      assert.match(await browser.evaluate(`document.querySelector(".excerpt").textContent`), /^\u2026.*needle <b>in<\/b> hay/);
    });

    it("submits a query to the page of results", async () => {
      await browser.goto(url("sub/start.htm"));
      await browser.press("/");
      await browser.type("stack");
      await browser.press("Enter");
      await eventually(`location.search === "?q=stack" && document.querySelectorAll("#site-search-page li").length === 1`);
      assert.equal(await browser.evaluate(`document.getElementById("site-search").value`), "stack");
    });

    it("says when there is nothing, with the nearest name", async () => {
      await browser.goto(url("search.htm") + "?q=pusztai");
      await eventually(`document.querySelectorAll("#site-search-page li").length`);
      assert.equal(await browser.evaluate(`document.getElementById("site-search-status").textContent`), "Nothing found. The nearest name:");
      await browser.goto(url("search.htm") + "?q=qqq");
      await eventually(`document.getElementById("site-search-status").textContent === "Nothing found."`);
    });

    it("injects nothing, whatever titles, bodies and queries hold", async () => {
      for (const query of [hostile, "hostile", "script onerror", "<b>", "\"><script>window.harmed=1</script>"]) {
        await browser.goto(url("search.htm") + "?q=" + encodeURIComponent(query));
        await eventually(`document.querySelectorAll("#site-search-page li").length || document.getElementById("site-search-status").textContent`);
        await delay(50);
        assert.deepEqual(await browser.evaluate(`[window.harmed ?? 0, document.querySelectorAll("img, li script").length]`), [0, 0], query);
      }
      await browser.goto(url("search.htm") + "?q=hostile");
      await eventually(`document.querySelector("#site-search-page b")?.textContent.startsWith("</script><img")`);
    });

    it("answers queries of any length and any characters", async () => {
      for (const unit of ["a", "-", "::", "\u6587", "\ud800", "%", "\0"]) {
        await browser.goto(url("search.htm"));
        const query = JSON.stringify(unit.repeat(10_000));
        const time = await browser.evaluate(`(async () => { const start = performance.now();
          await tavidocSearch.search(${query}, 12, () => {}); return performance.now() - start; })()`);
        assert.ok(time < 2000, `${unit}: ${time} ms`);
        await browser.evaluate(`(document.getElementById("site-search").value = ${query},
          document.getElementById("site-search").dispatchEvent(new Event("input")))`);
      }
      await browser.goto(url("search.htm") + "?q=%ff%00%ed%a0%80%c3");
      await eventually(`document.getElementById("site-search-status").textContent`);
    });
  });
}
