// Tests of the menu of versions in browsers, from files and from a server.
import assert from "node:assert/strict";
import {execFileSync, spawnSync} from "node:child_process";
import {existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync} from "node:fs";
import {createServer} from "node:http";
import {tmpdir} from "node:os";
import {join} from "node:path";
import {after, before, describe, it} from "node:test";
import {pathToFileURL} from "node:url";
import {chromium, eventually as whenTrue, firefox, isInstalled} from "./browser.mjs";

const program = process.env.TAVIDOC_SITE_PROGRAM;
const top = mkdtempSync(join(tmpdir(), "versions ä#-"));
after(() => rmSync(top, {recursive: true}));
const list = join(top, "out", "versions.js");

// Builds a version with a page for each name, all but the first in a folder.
function build(version, pages, versions = "[versions]") {
  for (const [index, name] of pages.entries())
    writeFileSync(join(top, `${name}.dg`), `\\split{${index ? `deep/${name}` : name}}\n\\title{${name}}\nOf ${version}.\n`);
  writeFileSync(join(top, "site.toml"), `version = "${version}"\n${versions}\n[[input]]\nfiles = ${JSON.stringify(pages.map(name => name + ".dg"))}\n`);
  return spawnSync(program, ["build", "-q", "-o", join("out", version)], {cwd: top, encoding: "utf8"});
}

before(() => {
  for (const [version, pages] of [["2.9", ["index", "same", "gone"]], ["main ä,#", ["index", "same"]], ["2.10", ["index", "same", "fresh"]]])
    assert.equal(build(version, pages).stderr, "");
});

describe("the list of versions", () => {
  it("has each version once, the newest first, in ASCII", () => {
    const text = readFileSync(list, "latin1");
    assert.equal(text, `tavidocVersions([
{"folder":"main \\u00e4,#","title":"main \\u00e4,#"},
{"folder":"2.10","title":"2.10"},
{"folder":"2.9","title":"2.9"}
]);
`);
    assert.equal(build("2.10", ["index", "same", "fresh"]).status, 0);
    assert.equal(readFileSync(list, "latin1"), text);
    assert.equal(build("2.10", ["index", "same", "fresh"], `[versions]\ntitle = "2.10 (stable)"`).status, 0);
    assert.ok(readFileSync(list, "latin1").includes(`{"folder":"2.10","title":"2.10 (stable)"},\n{"folder":"2.9"`));
    assert.equal(build("2.10", ["index", "same", "fresh"]).status, 0);
  });

  it("is left alone when it is something else", () => {
    const text = readFileSync(list);
    for (const wrong of ["alert(1)", "tavidocVersions([{}]);", "tavidocVersions(3);", "tavidocVersions("]) {
      writeFileSync(list, wrong);
      const {status, stderr} = build("2.10", ["index", "same", "fresh"]);
      assert.match(stderr, /versions\.js: (not a list of versions|a version without a folder or title)\n$/);
      assert.equal(status, 1);
      assert.equal(readFileSync(list, "utf8"), wrong);
    }
    writeFileSync(list, text);
  });

  it("is not made without the key", () => {
    execFileSync(program, ["build", "-q", "index.dg", "-o", "plain/1"], {cwd: top});
    assert.ok(!existsSync(join(top, "plain", "versions.js")) && !existsSync(join(top, "plain", "1", "version_menu.js")));
    assert.ok(!readFileSync(join(top, "plain", "1", "index.htm"), "utf8").includes("version_menu"));
  });
});

// The files as a server gives them.
const server = createServer((request, response) => {
  const file = join(top, decodeURIComponent(request.url));
  const type = file.endsWith(".js") ? "text/javascript" : file.endsWith(".css") ? "text/css" : "text/html";
  response.writeHead(existsSync(file) ? 200 : 404, {"Content-Type": type, "X-Content-Type-Options": "nosniff"});
  response.end(existsSync(file) ? readFileSync(file) : "");
});
before(() => new Promise(done => server.listen(0, "127.0.0.1", done)));
after(() => server.close());

for (const [name, open] of [["chromium", chromium], ["firefox-esr", firefox]]) {
  describe(name, {skip: !isInstalled(name), timeout: 240_000}, () => {
    let browser;
    before(async () => browser = await open());
    after(() => browser?.close());
    const eventually = async expression => assert.ok(await whenTrue(() => browser.evaluate(expression).catch(() => false)), expression);
    const menu = `document.querySelector("header #site-version")`;
    const shown = (page, version) => eventually(`document.querySelector("main").textContent.includes(${JSON.stringify(`Of ${version}.`)}) &&
      decodeURIComponent(location.pathname).endsWith(${JSON.stringify(`${version}/${page}`)}) && ${menu}?.value === ${JSON.stringify(version)}`);
    const choose = version => browser.evaluate(`(${menu}.value = ${JSON.stringify(version)}, ${menu}.dispatchEvent(new Event("change")))`);

    for (const from of ["files", "a server"]) {
      it(`stays on the page where it exists, from ${from}`, async () => {
        const url = page => from === "files" ? String(pathToFileURL(join(top, "out", page))) :
          `http://127.0.0.1:${server.address().port}/out/${page.split("/").map(encodeURIComponent).join("/")}`;
        await browser.goto(url("2.9/deep/same.htm"));
        await shown("deep/same.htm", "2.9");
        assert.deepEqual(await browser.evaluate(`[...${menu}.options].map(option => option.text)`), ["main ä,#", "2.10", "2.9"]);
        assert.equal(await browser.evaluate(`${menu}.getAttribute("aria-label")`), "Version");
        await choose("main ä,#");
        await shown("deep/same.htm", "main ä,#");
        await choose("2.10");
        await shown("deep/same.htm", "2.10");
        await browser.goto(url("2.9/deep/gone.htm"));
        await shown("deep/gone.htm", "2.9");
        await choose("2.10");
        await shown("index.htm", "2.10");
      });
    }

    it("has no menu of one version, of none, or where it is not listed", async () => {
      const text = readFileSync(list);
      for (const wrong of [`tavidocVersions([{"folder":"2.9","title":"2.9"}]);`, "", `tavidocVersions([{"folder":"a","title":"a"},{"folder":"b","title":"b"}]);`]) {
        writeFileSync(list, wrong);
        await browser.goto(String(pathToFileURL(join(top, "out", "2.9", "index.htm"))));
        await eventually(`document.readyState === "complete"`);
        assert.equal(await browser.evaluate(menu), null, wrong);
      }
      writeFileSync(list, text);
    });
  });
}
