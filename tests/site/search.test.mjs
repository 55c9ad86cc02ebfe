// Tests of the engine of the search, on indexes that the linker's code writes.
import assert from "node:assert/strict";
import {execFileSync} from "node:child_process";
import {mkdtempSync, readdirSync, readFileSync, rmSync} from "node:fs";
import {tmpdir} from "node:os";
import {join} from "node:path";
import {after, test} from "node:test";
import {gzipSync} from "node:zlib";
import {engine, found} from "./search_engine.mjs";

const directories = [];
after(() => directories.forEach(name => rmSync(name, {recursive: true})));

// The engine with an index of the pages.
function indexed(pages) {
  const directory = mkdtempSync(join(tmpdir(), "search-"));
  directories.push(directory);
  const lines = pages.map(page => [page.kind ?? "page", page.name, page.title, page.where ?? "Manual",
    page.address ?? `p${pages.indexOf(page)}.htm`, page.heading, page.brief, page.body].map(text => text ?? "").join("\t"));
  execFileSync(process.env.WRITE_SEARCH_INDEX, [directory], {input: lines.join("\n")});
  return Object.assign(engine(directory), {directory});
}

const names = async (search, query, limit) => (await found(search, query, limit)).map(row => row.name);

test("the engine is small and ASCII", () => {
  const script = readFileSync(new URL("../../share/site/search.js", import.meta.url));
  assert.ok(script.every(byte => byte < 128));
  assert.ok(gzipSync(script, {level: 9}).length <= 4096);
});

test("queries become the terms of the index", async () => {
  const rows = JSON.parse(readFileSync(new URL("search_terms.json", import.meta.url), "utf8"));
  const search = engine("");
  for (const [query, terms] of rows)
    assert.deepEqual([...search.terms(query)], terms.slice(0, 8), query);
});

test("ranks go from names to bodies", async () => {
  const search = indexed([
    {title: "Notes", body: "some words on a buffer"},
    {title: "More notes", brief: "what a buffer is"},
    {title: "Chapter", heading: "The buffer"},
    {title: "A buffer of rings"},
    {name: "setBufferSize", kind: "function"},
    {name: "buffered", kind: "function"},
    {title: "Buffer"},
    {name: "ring::Buffer", kind: "class"},
    {name: "bufer", kind: "function"},
    {title: "Unrelated", body: "other words"},
  ]);
  assert.deepEqual(await names(search, "buffer"), ["ring::Buffer", "Buffer", "buffered", "setBufferSize",
    "A buffer of rings", "Chapter", "More notes", "Notes", "bufer"]);
});

test("what is there once is found by any right or nearly right query", async () => {
  const search = indexed([
    {name: "tools::Buffer::push", kind: "function", where: "buffer.h"},
    {name: "tools::Stack::push", kind: "function", where: "stack.h"},
    {name: "setFillColor", kind: "function"},
    {name: "Buffer::operator==", kind: "function"},
    {name: "~Buffer", kind: "function"},
    {title: "Options", body: "use --no-main with C++ and \\xref, #define or $HOME"},
    {title: "Größe und Übermaß", body: "naïve Köln"},
    {title: "文档生成器"},
    {title: "The formats of files", body: "about kettles"},
    {title: "read only", body: "separate"},
  ]);
  const rows = [
    ["Buffer::push", "tools::Buffer::push"],
    ["tools::stack::PUSH", "tools::Stack::push"],
    ["setfill", "setFillColor"],
    ["color", "setFillColor"],
    ["fillc", "setFillColor"],
    ["setFilColor", "setFillColor"],
    ["setFillXColor", "setFillColor"],
    ["zetFillColor", "setFillColor"],
    ["setFillCoolr", "setFillColor"],
    ["etFillColor", "setFillColor"],
    ["setFillColour", "setFillColor"],
    ["operator==", "Buffer::operator=="],
    ["operator ==", "Buffer::operator=="],
    ["==", "Buffer::operator=="],
    ["operatr==", "Buffer::operator=="],
    ["~buf", "~Buffer"],
    ["--no-main", "Options"],
    ["--no", "Options"],
    ["C++", "Options"],
    ["\\xref", "Options"],
    ["#define", "Options"],
    ["$HOME", "Options"],
    ["größe", "Größe und Übermaß"],
    ["grosse", "Größe und Übermaß"],
    ["GRÖSSE", "Größe und Übermaß"],
    ["ubermass", "Größe und Übermaß"],
    ["koln naive", "Größe und Übermaß"],
    ["生成", "文档生成器"],
    ["文档生成器", "文档生成器"],
    ["成", "文档生成器"],
    ["the formats of fi", "The formats of files"],
    ["files formats kettles", "The formats of files"],
    ["files fromats", "The formats of files"],
    ["read-only", "read only"],
    ["(kettles)", "The formats of files"],
  ];
  for (const [query, name] of rows)
    assert.equal((await names(search, query))[0], name, query);
  assert.deepEqual((await found(search, "push")).map(row => [row.name, row.where, row.kind]), [
    ["tools::Buffer::push", "buffer.h", "function"], ["tools::Stack::push", "stack.h", "function"]]);
  assert.ok((await found(search, "push kettles")).every(row => row.isNearest), "all words have to be there");
});

test("addresses come back whole", async () => {
  const addresses = ["a.htm", "api/ring/Buffer.push.htm", "api/ring/odd.htm", "x/y/tools.Buffer.htm", "api/Color.htm#enumerator.Red"];
  const search = indexed(addresses.map((address, i) => ({name: ["zeta", "Buffer::push", "ring::odd2", "tools::Buffer", "Color::Red"][i], address})));
  const rows = await Promise.all(["zeta", "push", "odd2", "buffer", "red"].map(async query => (await found(search, query))[0].address));
  assert.deepEqual(rows, addresses);
});

test("when nothing is found the nearest name is shown as such", async () => {
  const search = indexed([{name: "translate", kind: "function"}, {name: "zoom", kind: "function"}]);
  const rows = await found(search, "transmogrify");
  assert.deepEqual(rows.map(row => [row.name, row.isNearest]), [["translate", true]]);
  assert.deepEqual(await found(search, "qqq"), [], "no name begins like that");
  assert.deepEqual(await found(search, "  "), []);
  assert.deepEqual(await found(indexed([]), "a"), []);
});

test("missing files of the index are nothing found", async () => {
  const search = indexed([{name: "alpha"}]);
  for (const name of readdirSync(search.directory))
    if (!name.startsWith("root"))
      rmSync(join(search.directory, name));
  assert.deepEqual(await found(search, "alpha"), []);
  assert.deepEqual(await found(engine(search.directory + "/none"), "alpha"), []);
});

test("one edit is one letter more, less, another, or two exchanged", () => {
  const {isOneEdit} = engine("");
  for (const [a, b, expected] of [["abc", "abcd", true], ["abc", "xabc", true], ["abc", "ac", true], ["abc", "bc", true],
    ["abc", "axc", true], ["abc", "acb", true], ["abc", "bac", true], ["", "a", true], ["abc", "abc", true],
    ["abc", "cba", false], ["abcd", "badc", false], ["abc", "abcde", false], ["abc", "axcd", false], ["abcd", "acbx", false]]) {
    assert.equal(isOneEdit(a, b), expected, `${a} ${b}`);
    assert.equal(isOneEdit(b, a), expected, `${b} ${a}`);
  }
});

test("results that are shown stay: later ones are appended, none twice", async () => {
  const search = indexed(Array.from({length: 3000}, (_, i) => ({name: `item${i.toString(36)}Part`, body: `word${i % 7} common`})));
  for (const query of ["item", "item1", "itemaPart", "itemaPrat", "common", "word3 common", "part"]) {
    const shown = [];
    await search.search(query, 12, rows => shown.push(...rows.map(row => row.name)));
    assert.equal(new Set(shown).size, shown.length, query);
    assert.ok(shown.length <= 12, query);
    assert.ok(shown.length > 0, query);
  }
});

test("a set of many pages is found from first to last", async () => {
  const name = i => `f${(i * 7919 % 60000).toString(36)}x${i.toString(36)}`;
  const search = indexed(Array.from({length: 60000}, (_, i) => ({name: name(i), address: `d${i % 10}/${name(i)}.htm`})));
  for (const i of [0, 1, 499, 500, 501, 31415, 59999]) {
    const [row] = await found(search, name(i));
    assert.deepEqual([row.name, row.address], [name(i), `d${i % 10}/${name(i)}.htm`]);
    const wrong = name(i).replace("x", "");
    assert.ok((await names(search, wrong)).includes(name(i)), wrong);
  }
  const sizes = readdirSync(search.directory).filter(file => /^[twb]/.test(file))
    .map(file => readFileSync(join(search.directory, file)).length);
  assert.ok(Math.max(...sizes) <= 25000, "shards are small");
});

test("no query hangs or throws", async () => {
  const search = indexed([{name: "alpha", body: "beta gamma"}, {title: "</script> \"quoted\" \\ ' &"}]);
  const units = [0, 9, 34, 39, 60, 92, 127, 0x2028, 0xd800, 0xdc00, 0xfffd, 0xffff, 0x4e00, 65, 95, 45, 58];
  let state = 1;
  const random = end => (state = (state * 48271) % 2147483647) % end;
  const queries = ["a".repeat(10000), "-".repeat(10000), "a::".repeat(3000), "文".repeat(10000), "\u0301".repeat(10000),
    "operator".repeat(1000), "a ".repeat(5000), "\ud800".repeat(10000), "__proto__", "constructor", "toString", "\\", "*", "("];
  for (let i = 0; i < 300; ++i)
    queries.push(Array.from({length: random(40)}, () => String.fromCharCode(random(2) ? units[random(units.length)] : random(65536))).join(""));
  const start = performance.now();
  for (const query of queries)
    await found(search, query);
  assert.ok(performance.now() - start < 20000, "queries are answered quickly");
  assert.equal((await found(search, "quoted"))[0].name, "</script> \"quoted\" \\ ' &");
});

test("a file of the index that is not text of ours does no harm", async () => {
  const search = indexed([{name: "bad\xff\xfe name"}, {title: "line\u2028 break\u2029 <!-- <script>"}]);
  for (const file of readdirSync(search.directory)) {
    const bytes = readFileSync(join(search.directory, file));
    assert.ok(bytes.every(byte => byte < 128 && (byte >= 32 || byte === 9 || byte === 10)), file);
    assert.ok(!bytes.includes("<"), file);
  }
  assert.equal((await found(search, "break"))[0].name, "line\u2028 break\u2029 <!-- <script>");
});
