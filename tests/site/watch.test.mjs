// Tests of "tavidoc-site watch": what it notices, how it ends, and what the open page shows.
import assert from "node:assert/strict";
import {execFileSync, spawn, spawnSync} from "node:child_process";
import {appendFileSync, closeSync, existsSync, mkdirSync, mkdtempSync, openSync, readFileSync, readdirSync, renameSync,
  rmSync, symlinkSync, writeFileSync, writeSync} from "node:fs";
import {tmpdir} from "node:os";
import {dirname, join} from "node:path";
import {after, afterEach, before, beforeEach, describe, it} from "node:test";
import {setTimeout as delay} from "node:timers/promises";
import {pathToFileURL} from "node:url";
import {chromium, eventually, isInstalled} from "./browser.mjs";

const program = process.env.TAVIDOC_SITE_PROGRAM;
const lines = count => Array.from({length: count}, (_, index) => `Line ${index}.\n\n`).join("");
const manual = text => `\\split{tea}\n\\title{Kettle}\n${text}\n\n\\screen{cup.svg}\n\n\\include parts/part.dg\n${lines(80)}`;
const header = name => `/*!\n * \\this\n * Does ${name}.\n */\nint ${name}(void);\n`;

let site, watcher, output;
const path = name => join(site, name);
const write = (name, text) => {
  mkdirSync(dirname(path(name)), {recursive: true});
  writeFileSync(path(name), text);
};
// Saves as many editors do.
const replace = (name, text) => {
  writeFileSync(path(name + "~"), text);
  renameSync(path(name + "~"), path(name));
};
const read = name => existsSync(path(name)) ? readFileSync(path(name), "utf8") : "";
const becomes = async (check, what) => assert.ok(await eventually(check), `${what ?? check}\n${output}`);
const shows = (name, text) => becomes(() => read(name).includes(text), `${name}: ${text}`);
const printed = text => becomes(() => output.includes(text), text);

function makeSite() {
  site = mkdtempSync(join(tmpdir(), "watch ä#-"));
  write("site.toml", `title = "Tea"\n[[input]]\nfiles = ["manual.dg"]\n[[input]]\nfiles = ["include/*.h"]\n`);
  write("manual.dg", manual("See \\xref{boil}."));
  write("parts/part.dg", "Water.\n");
  write("cup.svg", "<svg/>");
  write("include/boil.h", header("boil"));
}

async function start(args = ["watch", "site.toml", "-o", "out"], command = program) {
  output = "";
  watcher = spawn(command, args, {cwd: site, stdio: ["ignore", "ignore", "pipe"]});
  watcher.ended = new Promise(done => watcher.on("exit", (status, signal) => done(signal ?? status)));
  watcher.stderr.setEncoding("utf8").on("data", text => output += text);
  await printed("watching ");
}

async function stop(signal = "SIGTERM") {
  watcher.kill(signal);
  return watcher.ended;
}

describe("watch", {timeout: 240_000}, () => {
  beforeEach(makeSite);
  afterEach(async () => {
    await stop("SIGKILL");
    rmSync(site, {recursive: true});
  });

  it("notices what a site is made of, however it is saved", async () => {
    await start();
    appendFileSync(path("manual.dg"), "\nAppended.\n");
    await shows("out/tea.htm", "Appended.");
    replace("manual.dg", manual("Replaced."));
    await shows("out/tea.htm", "Replaced.");
    write("parts/part.dg", "Milk.\n");
    await shows("out/tea.htm", "Milk.");
    replace("cup.svg", "<svg><!-- large --></svg>");
    await shows("out/cup.svg", "large");
    write("include/pour.h", header("pour"));
    await shows("out/pour.htm", "Does pour.");
    rmSync(path("include/pour.h"));
    await shows("out/pour.htm", "Page removed"); // never is there a moment without the page
    assert.ok(!read("out/contents.htm").includes("pour"));
    replace("site.toml", read("site.toml").replace("Tea", "Coffee"));
    await shows("out/tea.htm", "Coffee");
    write("elsewhere/part.dg", "Sugar.\n");
    rmSync(path("parts/part.dg"));
    symlinkSync("../elsewhere/part.dg", path("parts/part.dg"));
    await shows("out/tea.htm", "Sugar.");
    appendFileSync(path("elsewhere/part.dg"), "Honey.\n");
    await shows("out/tea.htm", "Honey.");
  });

  it("builds again when a file changes during a build", async () => {
    await start();
    for (let round = 0; round < 40; ++round) {
      write("manual.dg", manual(`Round ${round}.`));
      await delay(round % 8 * 10);
    }
    await shows("out/tea.htm", "Round 39.");
  });

  it("finds directories that vanish and come back", async () => {
    await start();
    for (const round of ["first", "second"]) {
      rmSync(path("include"), {recursive: true});
      await printed(`no file matches "include/*.h"`);
      output = "";
      assert.ok(read("out/boil.htm"), "the old pages stay");
      write("include/boil.h", header("boil").replace("Does", round));
      await shows("out/boil.htm", round);
    }
    renameSync(path("parts"), path("old"));
    await printed("[missing-include]");
    mkdirSync(path("parts"));
    write("parts/part.dg", "Again.\n");
    await shows("out/tea.htm", "Again.");
    appendFileSync(path("parts/part.dg"), "And again.\n");
    await shows("out/tea.htm", "And again.");
  });

  it("goes on with a project file that is wrong for a while", async () => {
    await start();
    write("site.toml", "titel = 3\n");
    await printed("unknown key");
    write("site.toml", `[[input]]\nfiles = ["new/*.dg"]\n`);
    await printed("no file matches");
    write("new/page.dg", "\\split{page}\n\\title{Page}\nNew.\n");
    await shows("out/page.htm", "New.");
    await shows("out/boil.htm", "Page removed");
    rmSync(path("site.toml"));
    await printed("site.toml: error: cannot be read");
    write("site.toml", `[[input]]\nfiles = ["manual.dg"]\n`);
    await shows("out/tea.htm", "Water");
  });

  it("ends with status 0 by signals, also during a build, and not at all by itself", async () => {
    for (const signal of ["SIGINT", "SIGTERM"]) {
      await start();
      write("manual.dg", manual(signal));
      await delay(signal === "SIGINT" ? 60 : 0);
      assert.equal(await stop(signal), 0);
      assert.deepEqual(readdirSync(path("out")).filter(name => /^\.tavidoc-site-\d/.test(name)), []);
    }
  });

  it("does not build for files that it does not depend on", async () => {
    await start(["watch", "manual.dg", "-o", "."]);
    await delay(300);
    const before = output;
    write("notes.txt", "nothing");
    await delay(300);
    assert.equal(output, before);
    write("manual.dg", manual("Changed."));
    await shows("tea.htm", "Changed.");
  });

  it("does not begin without a project, inputs or right arguments", () => {
    for (const [args, status] of [[["watch", "no.toml", "-o", "out"], 2], [["watch", "no.dg", "-o", "out"], 1], [["watch"], 2],
      [["watch", "manual.dg", "-o", "out", "--strict"], 2]])
      assert.equal(spawnSync(program, args, {cwd: site}).status, status, args);
  });

  it("leaves a site that build makes like any other, and takes one over", async () => {
    const build = () => execFileSync(program, ["build", "site.toml", "-o", "out", "-q"], {cwd: site});
    build();
    const files = () => readdirSync(path("out"), {recursive: true}).sort().map(name => [name, name.includes(".") && read(join("out", name))]);
    const before = files();
    await start();
    write("include/pour.h", header("pour"));
    await shows("out/pour.htm", "Does pour.");
    rmSync(path("include/pour.h"));
    await shows("out/pour.htm", "Page removed");
    for (const name of ["tea.htm", "boil.htm", "contents.htm", "pour.htm"])
      assert.equal(read("out/" + name).split("watch.js").length, 2, name);
    await stop();
    build();
    assert.deepEqual(files(), before);
  });

  it("looks at files again and again when the kernel does not watch them", {skip: !mayLimit()}, async () => {
    await start(["-Ur", "sh", "-c", `echo 1 > /proc/sys/user/max_inotify_watches; exec "$0" watch site.toml -o out`, program], "unshare");
    await printed("warning: the system cannot watch");
    for (const [name, text] of [["manual.dg", manual("One.")], ["parts/part.dg", "Two.\n"]]) {
      write(name, text);
      await shows("out/tea.htm", text.match(/(One|Two)\./)[0]);
    }
    write("include/pour.h", header("pour"));
    await shows("out/pour.htm", "Does pour.");
  });
});

function mayLimit() {
  return spawnSync("unshare", ["-Ur", "sh", "-c", "echo 1 > /proc/sys/user/max_inotify_watches"]).status === 0;
}

describe("an open page", {skip: !isInstalled("chromium"), timeout: 240_000}, () => {
  let browser, url;
  before(async () => browser = await chromium());
  after(() => browser?.close());
  beforeEach(async () => {
    makeSite();
    url = String(pathToFileURL(path("out/tea.htm")));
    await start();
    await browser.goto(url);
  });
  afterEach(async () => {
    await stop("SIGKILL");
    await browser.goto("about:blank");
    rmSync(site, {recursive: true});
  });
  // While the page is loaded again, there is nothing to evaluate it in.
  const whenTrue = (expression, what) => becomes(() => browser.evaluate(expression).catch(() => false), what ?? expression);
  const pageShows = text => whenTrue(`document.querySelector("main").textContent.includes(${JSON.stringify(text)})`);
  const box = `document.getElementById("site-watch")`;

  it("reloads itself and stays where the reader is", async context => {
    await browser.evaluate("scrollTo(0, 777)");
    const times = [];
    for (let round = 0; round < 20; ++round) {
      await delay(100 + round * 7); // polls come at any time
      const saved = performance.now();
      write("manual.dg", manual(`Round ${round}.`));
      await (async () => {
        while (!await browser.evaluate(`document.readyState === "complete" && document.querySelector("main").textContent.includes("Round ${round}.")`).catch(() => false))
          assert.ok(performance.now() - saved < 30_000, output);
      })();
      times.push(performance.now() - saved);
    }
    await whenTrue("Math.abs(scrollY - 777) < 2");
    times.sort((a, b) => a - b);
    context.diagnostic(`from saving to the reloaded page: median ${times[10].toFixed(0)} ms, from ${times[0].toFixed(0)} to ${times[19].toFixed(0)} ms`);
    assert.ok(times[10] < 3000, String(times));
  });

  it("does not build while a file is being written", async () => {
    await browser.evaluate("window.isSame = true");
    const file = openSync(path("manual.dg"), "w");
    await delay(300);
    assert.ok(await browser.evaluate("window.isSame"));
    writeSync(file, manual("Whole."));
    closeSync(file);
    await pageShows("Whole.");
  });

  it("ends up with the last of many edits, and then reloads no more", async () => {
    for (let round = 0; round < 30; ++round) {
      (round % 2 ? write : replace)("manual.dg", manual(`Edit ${round}.`));
      await delay(round % 6 * 15);
    }
    await shows("out/tea.htm", "Edit 29.");
    await pageShows("Edit 29.");
    await delay(1000);
    await browser.evaluate("window.isSame = true");
    await delay(1000);
    assert.ok(await browser.evaluate("window.isSame"));
  });

  it("shows errors as text until they are dismissed or gone", async () => {
    await browser.evaluate("window.isSame = true");
    write("manual.dg", manual("\\xref{<img src=x onerror='window.harmed=1'>} \\xref{ü\u2028}"));
    await whenTrue(`${box}?.textContent.includes("manual.dg:3: error: ")`);
    const text = await browser.evaluate(`${box}.textContent`);
    assert.ok(text.includes("<img src=x") && text.includes("ü") && text.includes("[dead-link]"), text);
    assert.deepEqual(await browser.evaluate(`[window.harmed ?? 0, ${box}.querySelectorAll("img").length]`), [0, 0]);
    assert.equal(await browser.evaluate(`${box}.getBoundingClientRect().top`), 0);
    await browser.evaluate(`${box}.querySelector("button").click()`);
    assert.equal(await browser.evaluate(box), null);
    write("parts/part.dg", "Reloaded.\n");
    await pageShows("Reloaded.");
    await delay(500);
    assert.equal(await browser.evaluate(box), null, "it stays dismissed");
    write("manual.dg", manual("\\xref{other}"));
    await whenTrue(`${box}?.textContent.includes("other")`);
    write("manual.dg", manual("Right."));
    await pageShows("Right.");
    await delay(500);
    assert.equal(await browser.evaluate(box), null);
  });

  it("stays and shows why a build failed", async () => {
    await browser.evaluate("window.isSame = true");
    write("site.toml", "[input]\n");
    await whenTrue(`${box}?.textContent.includes("site.toml:1:1: error: expected [[input]], with two brackets")`);
    write("site.toml", `[[input]]\nfiles = ["manual.dg", "loop.dg"]\n`);
    await whenTrue(`${box}?.textContent.includes("loop.dg")`);
    write("loop.dg", "\\include loop.dg\n");
    await whenTrue(`${box}?.textContent.includes("includes itself without end")`);
    assert.ok(await browser.evaluate("window.isSame"), "nothing was reloaded");
    rmSync(path("loop.dg"));
    write("site.toml", `[[input]]\nfiles = ["manual.dg"]\n`);
    await whenTrue(`window.isSame === undefined && ${box} === null`);
  });

  // Opens the page of a header that is not there otherwise.
  async function openPour() {
    write("include/pour.h", header("pour"));
    await shows("out/pour.htm", "Does pour.");
    await delay(1000); // the stamp is written last: a page that is opened before would reload itself
    await browser.goto(url.replace("tea", "pour"));
  }
  const isBack = () => whenTrue(`document.readyState === "complete" && ${box} === null`);

  it("says that it was removed until it is there again", async () => {
    await openPour();
    rmSync(path("include/pour.h"));
    await pageShows("This page is not part of the site any more.");
    assert.equal(await browser.evaluate("getComputedStyle(document.querySelector('header')).display"), "grid", "it has the site's style");
    write("include/pour.h", header("pour").replace("Does", "Again"));
    await pageShows("Again pour.");
    await isBack();
  });

  it("reloads itself also when it is removed between the look whether it is there and the reload", async () => {
    await openPour();
    // Holds back what the page hears of that look.
    await browser.evaluate(`void (document.head.append = script => {
      if (script.src.includes("/pour.htm")) {
        const heard = script.onload;
        script.onload = () => Object.assign(window, {hears: heard});
      }
      HTMLHeadElement.prototype.append.call(document.head, script);
    })`);
    write("include/pour.h", header("pour").replace("Does", "Changed"));
    await whenTrue("window.hears !== undefined", "the page saw the change");
    rmSync(path("include/pour.h"));
    await becomes(() => !read("out/contents.htm").includes("pour"));
    await browser.evaluate("void setTimeout(() => window.hears())");
    await pageShows("This page is not part of the site any more.");
    write("include/pour.h", header("pour").replace("Does", "Again"));
    await pageShows("Again pour.");
    await isBack();
  });

  it("waits when somebody else deletes it", async () => {
    await openPour();
    rmSync(path("out/pour.htm"));
    symlinkSync("nowhere", path("out/pour.htm")); // so that nothing takes its place
    rmSync(path("include/pour.h"));
    await whenTrue(`${box}?.textContent.includes("This page was removed.")`);
    assert.ok(await browser.evaluate(`document.querySelector("main").textContent.includes("Does pour.")`));
    rmSync(path("out/pour.htm"));
    write("include/pour.h", header("pour").replace("Does", "Again"));
    await pageShows("Again pour.");
    await isBack();
  });

  it("waits for a watch that is started again", async () => {
    await stop();
    write("manual.dg", manual("Later."));
    await start();
    await pageShows("Later.");
  });
});
