// Drives a headless Chromium over a pipe, for tests of pages. Nothing of it needs the network.
import { spawn } from "node:child_process";
import { mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";

/** A running browser with one page. */
export class Browser {
    #process;
    #profile;
    #input = Buffer.alloc(0);
    #calls = new Map();
    #waiting = []; // for events: {method, resolve}
    #lastId = 0;
    #session;

    static async start() {
        const browser = new Browser();
        browser.#profile = mkdtempSync(join(tmpdir(), "tavidoc-browser-"));
        const options = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
            "--disable-background-networking", "--remote-debugging-pipe", `--user-data-dir=${browser.#profile}`];
        browser.#process = spawn(process.env.CHROMIUM ?? "chromium", options,
            { stdio: ["ignore", "ignore", "ignore", "pipe", "pipe"] });
        browser.#process.stdio[4].on("data", (data) => browser.#receive(data));
        const { targetId } = await browser.#send("Target.createTarget", { url: "about:blank" });
        const { sessionId } = await browser.#send("Target.attachToTarget", { targetId, flatten: true });
        browser.#session = sessionId;
        await browser.call("Page.enable");
        await browser.call("Runtime.enable");
        return browser;
    }

    async stop() {
        const ended = new Promise((resolve) => this.#process.once("exit", resolve));
        this.#send("Browser.close").catch(() => {});
        await ended;
        rmSync(this.#profile, { recursive: true, force: true });
    }

    /** Calls a method of the DevTools protocol for the page. */
    call(method, parameters = {}) {
        return this.#send(method, parameters, this.#session);
    }

    /** Sets the width of the window, and what the reader prefers: {theme: "dark", media: "print", script: false}. */
    async setUp(width, { theme = "light", media = "screen", script = true, height = 900 } = {}) {
        await this.call("Emulation.setDeviceMetricsOverride", { width, height, deviceScaleFactor: 1, mobile: false });
        await this.call("Emulation.setEmulatedMedia",
            { media, features: [{ name: "prefers-color-scheme", value: theme }] });
        await this.call("Emulation.setScriptExecutionDisabled", { value: !script });
    }

    /** Opens a file and waits until it has loaded. */
    async open(address) {
        const loaded = new Promise((resolve) => this.#waiting.push({ method: "Page.loadEventFired", resolve }));
        await this.call("Page.navigate", { url: address });
        await loaded;
    }

    /** The value of an expression in the page; promises are awaited. */
    async evaluate(expression) {
        const { result, exceptionDetails } = await this.call("Runtime.evaluate",
            { expression, returnByValue: true, awaitPromise: true });
        if (exceptionDetails)
            throw new Error(exceptionDetails.exception?.description ?? exceptionDetails.text);
        return result.value;
    }

    /** Presses and releases a key: "Tab", "Enter", "a". */
    async press(key, modifiers = 0) {
        const codes = { Tab: 9, Enter: 13, Escape: 27, ArrowDown: 40, ArrowUp: 38, ArrowRight: 39, " ": 32 };
        const text = key === "Enter" ? "\r" : key.length === 1 ? key : undefined;
        const event = { key, modifiers, windowsVirtualKeyCode: codes[key] ?? key.toUpperCase().charCodeAt(0), text };
        await this.call("Input.dispatchKeyEvent", { type: text ? "keyDown" : "rawKeyDown", ...event });
        await this.call("Input.dispatchKeyEvent", { type: "keyUp", ...event });
    }

    /** The PNG of the page, the whole of it if asked. */
    async screenshot(whole = false) {
        const { data } = await this.call("Page.captureScreenshot", { format: "png", captureBeyondViewport: whole });
        return Buffer.from(data, "base64");
    }

    #send(method, parameters = {}, sessionId = undefined) {
        const id = ++this.#lastId;
        return new Promise((resolve, reject) => {
            this.#calls.set(id, { resolve, reject });
            this.#process.stdio[3].write(JSON.stringify({ id, method, params: parameters, sessionId }) + "\0");
        });
    }

    #receive(data) {
        this.#input = Buffer.concat([this.#input, data]);
        for (let end; (end = this.#input.indexOf(0)) >= 0;) {
            this.#handle(JSON.parse(this.#input.subarray(0, end).toString()));
            this.#input = this.#input.subarray(end + 1);
        }
    }

    #handle(message) {
        const call = this.#calls.get(message.id);
        if (call) {
            this.#calls.delete(message.id);
            if (message.error)
                call.reject(new Error(message.error.message));
            else
                call.resolve(message.result);
        }
        this.#waiting = this.#waiting.filter((waiting) => {
            if (waiting.method !== message.method)
                return true;
            waiting.resolve(message.params);
            return false;
        });
    }
}
