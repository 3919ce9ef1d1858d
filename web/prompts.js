// The question the host waits for (state `prompt`): a message box, a question, or the file
// chooser. Each is a modal window in front of everything; it stays until the host's `prompt`
// changes, and its buttons go insensitive once answered so one prompt gets one answer.

import { FileChooser } from './filechooser.js';

const MESSAGE_TITLES = { error: 'Error', warning: 'Warning', information: 'Information' };
// A question's buttons by its type: [label, the answer it gives].
const QUESTION_BUTTONS = {
    yesno: [['Yes', true], ['No', false]],
    okcancel: [['OK', true], ['Cancel', false]],
};

export class Prompts {
    constructor(studio, connection, windows) {
        this.studio = studio;
        this.connection = connection;
        this.windows = windows;
        this.current = null; // {id, win, chooser}
        connection.onState((changed) => {
            if (changed.has('prompt') || changed.has('roots')) this.refresh();
        });
        connection.onMessage('listing', (message) => this.current?.chooser?.showListing(message));
    }

    refresh() {
        const prompt = this.studio.state.prompt;
        if (this.current && (!prompt || prompt.id !== this.current.id)) {
            this.windows.hide(this.current.win);
            this.current = null;
        }
        if (!prompt || this.current) {
            if (prompt && this.current?.chooser) this.current.chooser.setRoots(this.studio.state.roots || []);
            return;
        }
        this.current = prompt.kind === 'file' ? this.fileChooser(prompt) : this.messageBox(prompt);
        this.windows.show(this.current.win);
    }

    answer(fields) {
        const win = this.current?.win;
        if (!win) return;
        for (const button of win.element.querySelectorAll('button, input, select')) button.disabled = true;
        this.connection.send({ type: 'answer', id: this.current.id, ...fields });
    }

    window(title) {
        const win = this.windows.create({ title, prompt: true, className: 'dialog prompt', role: 'alertdialog' });
        const text = document.createElement('div');
        text.className = 'prompt-text';
        text.id = `${win.title.id}-text`;
        win.element.setAttribute('aria-describedby', text.id);
        const buttons = document.createElement('div');
        buttons.className = 'dialog-buttons';
        win.body.append(text, buttons);
        return { win, text, buttons };
    }

    messageBox(prompt) {
        const { win, text, buttons } = this.window(prompt.kind === 'message' ? MESSAGE_TITLES[prompt.type] || 'Message' : 'Question');
        win.element.dataset.promptKind = prompt.kind;
        win.element.classList.add(`prompt-${prompt.type}`);
        text.textContent = prompt.text;
        const choices = prompt.kind === 'message' ? [['OK', true]] : QUESTION_BUTTONS[prompt.type] || QUESTION_BUTTONS.yesno;
        for (const [label, yes] of choices) {
            const button = document.createElement('button');
            button.type = 'button';
            button.textContent = label;
            button.addEventListener('click', () => this.answer({ yes }));
            buttons.append(button);
        }
        // Esc answers as the last button does (No, Cancel; OK for a message).
        win.element.addEventListener('keydown', (event) => {
            if (event.key !== 'Escape') return;
            event.preventDefault();
            event.stopPropagation();
            this.answer({ yes: choices[choices.length - 1][1] });
        });
        return { id: prompt.id, win };
    }

    fileChooser(prompt) {
        const parts = this.window(prompt.mode === 'write' ? 'Save' : 'Open');
        parts.win.element.dataset.promptKind = 'file';
        const chooser = new FileChooser(prompt, parts, {
            list: (root, path) => this.connection.send({ type: 'list', root, path }),
            answer: (file) => this.answer({ file }),
        });
        chooser.setRoots(this.studio.state.roots || []);
        return { id: prompt.id, win: parts.win, chooser };
    }
}
